#pragma once

#include "linux/applist/Application.h"

#include <string>
#include <vector>

namespace platform::applist {

/// Returns the desktop's own applications, those in its menus, with names in the user's language. The
/// identifier is the entry's name without ".desktop".
std::vector<Application> desktopApplications();

/// Returns the file of the entry's icon for a square of `pixels`; empty when there is none.
std::string desktopIcon(const Application& application, int pixels);

} // namespace platform::applist
