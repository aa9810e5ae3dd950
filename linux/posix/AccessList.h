#pragma once

#include <string>
#include <system_error>

namespace platform::posix {

/// Gives an open file the access list of the file at `path`: the rights of single users and groups. Where
/// that has none, removes the one that a new file may have from its folder.
std::error_code copyAccessList(const std::string& path, int file);

} // namespace platform::posix
