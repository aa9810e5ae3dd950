#pragma once

#include <string>
#include <system_error>

namespace platform::posix {

/// Symbolic links in the last component of a path, followed only where this user or root laid them. In a
/// folder that others can write to anybody can lay one, and would choose what is read or replaced with our
/// rights. The owner is that of the very link whose text is used, so nobody can lay another one in between.

/// The text of the link; a foreign one is refused with std::errc::permission_denied and says so.
std::error_code readTrustedSymlink(const std::string& path, std::string& target);

/// Opens an existing file as open(2) does. No error: the descriptor is the caller's.
std::error_code openThroughTrustedSymlinks(std::string path, int flags, int& descriptor);

} // namespace platform::posix
