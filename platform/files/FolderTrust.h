#pragma once

#include "platform/base/Export.h"

#include <string>

namespace platform {

/// Who besides the user could change what lies in a folder.
struct FolderDoubt {
    /// The folder or link that lets another user in: the one asked for, or one on the path to it.
    std::string path;
    /// Why, in one line that begins with the path; empty where nobody else could.
    std::string reason;

    explicit operator bool() const { return !reason.empty(); }
};

/// Whether another user could put files into the folder, an absolute path of this machine, or put another
/// folder in its place. The folder and all above it are judged as those of a module are (DynamicLibrary.h):
/// they have to belong to the user, to root or to the owner of this library, and nobody else may write to
/// them. A folder further up may be sticky.
WARDLOCK_API FolderDoubt doubtOfFolder(const std::string& path);

} // namespace platform
