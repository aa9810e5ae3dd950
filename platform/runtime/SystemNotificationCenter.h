#pragma once

#include "platform/base/Export.h"

namespace platform {

class CFNotificationCenter;

/// Returns the operating system's own distributed centre, created on first use and kept until the process
/// ends.
CFNotificationCenter& systemNotificationCenter();

/// Replaces what CFNotificationCenterGetDistributedCenter() returns; null restores the system's own. Does not
/// take ownership.
WARDLOCK_API void setDistributedCenter(CFNotificationCenter* center);

} // namespace platform
