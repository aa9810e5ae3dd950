#pragma once

#include <string>

namespace platform {

/// Why the module in this file, a path without links, is not to be loaded: somebody but the user and root
/// could have put it there or changed it. Empty when nobody could. A group of which the user is the only
/// member counts as the user.
std::string reasonToDistrust(const std::string& path);

} // namespace platform
