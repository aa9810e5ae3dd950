#include "platform/ui/UIVisualEffectView.h"

namespace platform {

UIVisualEffectView::~UIVisualEffectView() = default;

} // namespace platform
