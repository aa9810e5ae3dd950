#pragma once

#include "platform/values/Value.h"

namespace wardlock::cli {

/// Returns the display names of the installed applications by identifier, as the picker of restricted apps
/// gets them: from the AppList library of the device. Empty where that cannot be loaded.
platform::Dictionary installedApplications();

} // namespace wardlock::cli
