#pragma once

#include <optional>
#include <string>

namespace platform {

class FileSystem;

/// The operating system's half of this library: the files of this machine.
FileSystem& realFileSystem();

/// Returns the home folder of the user's password entry; nothing where there is no entry.
std::optional<std::string> homeFolderOfUser();

} // namespace platform
