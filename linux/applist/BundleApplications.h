#pragma once

#include "linux/applist/Application.h"

#include <vector>

namespace platform::applist {

/// Returns the applications in .app folders below the device root, where the device keeps them, in a fixed
/// order. A folder without an Info.plist that names an identifier does not count.
std::vector<Application> bundleApplications();

} // namespace platform::applist
