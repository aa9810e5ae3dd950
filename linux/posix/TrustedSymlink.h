#pragma once

#include <string>
#include <system_error>

namespace platform::posix {

/// Symbolic links in the last component of a path, followed only where this user or root created them. In a
/// folder that others can write to, any user can create a link and so choose what is read or replaced with
/// our rights. The owner is that of the very link whose text is used, so another user cannot replace the link
/// in between.

/// Reads the text of the link. A foreign one is refused with std::errc::permission_denied and a message of
/// its own.
std::error_code readTrustedSymlink(const std::string& path, std::string& target);

/// Opens an existing file as open(2) does. On success the caller owns the descriptor.
std::error_code openThroughTrustedSymlinks(const std::string& path, int flags, int& descriptor);

} // namespace platform::posix
