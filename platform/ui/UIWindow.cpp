#include "platform/ui/UIWindow.h"

namespace platform {

UIWindow::~UIWindow() = default;

} // namespace platform
