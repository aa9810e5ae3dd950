#pragma once

#include "platform/base/Export.h"

#include <string>

namespace platform {

/// A path that lets another user change what is in a folder.
struct FolderRisk {
    /// The folder or link that lets another user in: the one asked about, or one on the path to it.
    std::string path;
    /// The reason, in one line that begins with the path; empty where no other user can change anything.
    std::string reason;

    explicit operator bool() const { return !reason.empty(); }
};

/// Finds out whether another user could put files into the folder, an absolute path of this machine, or
/// replace the folder by another. The folder and all above it follow the rules for a module's folders
/// (DynamicLibrary.h). Each must belong to the user, to root or to the owner of this library, and no other
/// user may write to it. A folder further up may be sticky.
WARDLOCK_API FolderRisk riskOfFolder(const std::string& path);

} // namespace platform
