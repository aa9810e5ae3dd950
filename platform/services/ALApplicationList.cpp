#include "platform/services/ALApplicationList.h"

namespace platform {

ALApplicationList::~ALApplicationList() = default;
ALApplicationListClass::~ALApplicationListClass() = default;

} // namespace platform
