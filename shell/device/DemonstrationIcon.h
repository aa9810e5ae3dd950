#pragma once

#include "shell/device/DemonstrationApplications.h"

#include <string>

namespace wardlock::shell {

/// Returns the application's icon as SVG: a white shape on a rounded ground that darkens downwards.
std::string demonstrationIcon(const DemonstrationApplication& application);

} // namespace wardlock::shell
