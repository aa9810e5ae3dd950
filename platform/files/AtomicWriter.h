#pragma once

#include "platform/base/Export.h"
#include "platform/files/FileSystem.h"

#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace platform {

/// Mode and owner of a file that replaces another: the old file's, or 0600 as for a new file (it may contain
/// a passcode).
enum class Attributes { OfOldFile, Private };

/// Replaces a file's bytes in one step: a reader sees the old bytes or the new, after a kill or a power cut
/// too. The file itself is never opened for writing and never locked.
///
/// The bytes go to a temporary file in the same folder, which is then renamed over the old one. While it is
/// written, its writer holds an advisory lock on it. A temporary without a lock was left by a process that is
/// gone; every write removes those of its folder. A process number would not do: numbers are reused, and mean
/// nothing in another container that shares the folder.
///
/// - A symbolic link stays, and the file it leads to is replaced. A link of another user (root aside) is
///   refused.
/// - Where the owner cannot be kept (only root may give files away), the write goes on as the user's own
///   file. The old group's rights are not given to another group.
/// - Extended attributes are not kept.
/// - A missing folder is not created.
class WARDLOCK_API AtomicWriter {
public:
    explicit AtomicWriter(FileSystem& files = FileSystem::current()) : files_(files) {}

    /// Returns an error when the old file stays and no temporary is left. The exception is a folder that
    /// could not be synced (the last step of Sync::Full): then the new file is in place.
    std::error_code write(const std::string& path, std::string_view bytes, Sync sync,
                          Attributes attributes = Attributes::OfOldFile);

private:
    struct Target {
        std::string path;
        std::optional<FileStatus> old;
    };

    std::error_code find(const std::string& path, Target& target);
    void removeStale(const std::string& folder);
    std::error_code createTemporary(const Target& target, std::string& path, FileHandle& file);
    std::error_code attempt(const Target& target, std::string_view bytes, Sync sync);
    std::error_code fill(FileHandle file, const Target& target, std::string_view bytes, Sync sync);
    std::error_code keepAttributes(FileHandle file, const FileStatus& created, const Target& target);
    std::error_code keepOwner(FileHandle file, const FileStatus& created, const FileStatus& old,
                              unsigned& mode);

    FileSystem& files_;
};

} // namespace platform
