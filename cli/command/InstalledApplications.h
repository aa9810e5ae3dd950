#pragma once

#include "platform/values/Value.h"

#include <string>

namespace wardlock::cli {

/// The installed applications as the picker of restricted apps gets them.
struct InstalledApplications {
    /// Their display names by identifier.
    platform::Dictionary names;
    /// Why they cannot be listed; empty when they can.
    std::string problem;
};

/// Lists them by the AppList library of the device. A device root gets its link to that library when Settings
/// is opened for the first time; until then, the library of this installation lists the same. Creates
/// nothing.
InstalledApplications installedApplications();

} // namespace wardlock::cli
