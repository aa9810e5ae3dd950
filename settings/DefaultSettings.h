#pragma once

#include "../platform/base/Export.h"
#include "../platform/values/Value.h"

namespace wardlock {

/// Returns the complete default document: switched on, no passcode, one account record that is itself not
/// enabled. Every call builds new containers; a caller that changes the result makes a mutable copy.
WARDLOCK_API platform::Dictionary DefaultSettings();

} // namespace wardlock
