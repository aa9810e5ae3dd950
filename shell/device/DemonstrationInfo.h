#pragma once

#include "shell/device/DemonstrationApplications.h"

#include <string>

namespace wardlock::shell {

/// Returns the bytes of the application's Info.plist, in its form.
std::string demonstrationInfo(const DemonstrationApplication& application, std::string_view iconFile);

} // namespace wardlock::shell
