#pragma once

#include <string>

namespace platform::posix {

/// Makes the folder where it is missing. True: it is a real folder, of this user, and nobody else may look
/// into it. False also for a symbolic link, which somebody else may have laid.
bool preparePrivateFolder(const std::string& path);

/// Makes the folder and those above it that are missing, for the user alone whatever the creation mask. True:
/// it is of this user, and nobody else may change what is in it.
bool prepareOwnFolder(const std::string& path);

/// Whether a folder stands there, maybe behind a link of this user or root, that belongs to one of these two.
bool isFolderOfOwnUser(const std::string& path);

/// Whether it is such a folder already.
bool isPrivateFolder(const std::string& path);

} // namespace platform::posix
