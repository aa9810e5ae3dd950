#pragma once

#include "platform/base/Export.h"
#include "platform/values/Value.h"

namespace wardlock {

/// The complete default document: switched on, no passcode, one account record that is itself not enabled.
/// Every call builds fresh containers; whoever wants to change the result makes a mutable copy.
WARDLOCK_API platform::Dictionary DefaultSettings();

} // namespace wardlock
