#pragma once

#include <optional>
#include <string>

namespace platform {

class FileSystem;

/// What the operating system's half of this library gives: the files of this machine.
FileSystem& realFileSystem();

/// The home folder the user's password entry names; none where there is no entry.
std::optional<std::string> homeFolderOfUser();

} // namespace platform
