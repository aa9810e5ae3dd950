#pragma once

#include <string>
#include <system_error>

namespace platform::posix {

/// Creates the folder where it is missing. Returns true for a real folder of this user that no other user may
/// read. Returns false also for a symbolic link, which another user may have created.
bool preparePrivateFolder(const std::string& path);

/// Creates the folder and those above it that are missing, for the user alone whatever the creation mask.
/// Fails unless it belongs to this user and no other user may change what is in it.
std::error_code prepareUserFolder(const std::string& path);

/// Returns whether the path is a folder of this user or root, maybe behind a link of one of these two.
bool isFolderOfOwnUser(const std::string& path);

/// Returns whether it is such a folder already.
bool isPrivateFolder(const std::string& path);

} // namespace platform::posix
