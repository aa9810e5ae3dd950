#pragma once

#include <optional>
#include <string>

namespace platform {

/// Returns the home folder of the user's password entry; nothing where there is no entry.
std::optional<std::string> homeFolderOfUser();

} // namespace platform
