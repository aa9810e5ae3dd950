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

/// The step in which a temporary gets the file's name.
struct Replacement {
    std::string path; ///< the file itself, behind links
    std::optional<FileStatus> old;
    std::string temporary;
};

/// Is called around that step. Nothing that it does or fails to do stops the write.
class ReplacementObserver {
public:
    virtual ~ReplacementObserver() = default;
    /// The temporary has all its bytes, and nothing but its name is missing.
    virtual void willReplace(const Replacement& replacement) = 0;
    /// The temporary did not get the name, and is removed.
    virtual void didNotReplace() = 0;
    /// The file is in place, and on the disk as far as that was asked for and possible.
    virtual void didReplace(const std::string& path) = 0;
    /// A temporary of a process that is gone is being removed: it never gets the name of the file at `path`,
    /// and has another one. Until this returns, the next write would find the temporary as well.
    virtual void willRemoveLeftover(const std::string& path, const FileStatus& leftover) = 0;
};

/// Replaces a file's bytes in one step: a reader sees the old bytes or the new, after a kill or a power cut
/// too. The file itself is never opened for writing and never locked.
///
/// The bytes go to a temporary file in the same folder, which is then renamed over the old one. While it is
/// written, its writer holds an advisory lock on it. A temporary without a lock was left by a process that is
/// gone; every write removes those of its folder. A process number would not do: numbers are reused, and mean
/// nothing in another container that shares the folder. A temporary with a second name is left to the writes
/// of its own file that have an observer, which knows what the name is for.
///
/// - A symbolic link stays, and the file it leads to is replaced. A link of another user (root aside) is
///   refused.
/// - Where the owner cannot be kept (only root may give files away), the write goes on as the user's own
///   file. The old group's rights are not given to another group.
/// - The access list is kept. Where it cannot be, the group gets no rights but those of all others.
/// - Other extended attributes are not kept.
/// - A missing folder is not created.
class WARDLOCK_API AtomicWriter {
public:
    /// The observer, if any, has to outlive the writer.
    explicit AtomicWriter(FileSystem& files = FileSystem::current(), ReplacementObserver* observer = nullptr)
        : files_(files), observer_(observer) {}

    /// Returns an error when the old file stays and no temporary is left. The exception is a folder that
    /// could not be synced (the last step of Sync::Full): then the new file is in place, and a power cut may
    /// bring the old one back.
    std::error_code write(const std::string& path, std::string_view bytes, Sync sync,
                          Attributes attributes = Attributes::OfOldFile);
    /// Returns whether the last write() put the new file in place, whatever it returned.
    bool isInPlace() const { return inPlace_; }

    /// Removes the temporaries that were left beside the file, as every write of it does.
    void removeLeftovers(const std::string& path);

private:
    struct Target {
        std::string path;
        std::optional<FileStatus> old;
    };

    std::error_code find(const std::string& path, Target& target);
    void removeStale(const Target& target);
    void removeIfStale(const std::string& path, const Target& target);
    void removeNamed(const std::string& path, const Target& target, const FileStatus& leftover);
    std::error_code createTemporary(const Target& target, std::string& path, FileHandle& file);
    std::error_code attempt(const Target& target, std::string_view bytes, Sync sync);
    std::error_code rename(const std::string& temporary, const Target& target);
    std::error_code fill(FileHandle file, const Target& target, std::string_view bytes, Sync sync);
    std::error_code keepAttributes(FileHandle file, const FileStatus& created, const Target& target);
    std::error_code keepOwner(FileHandle file, const FileStatus& created, const FileStatus& old,
                              unsigned& mode);
    std::error_code keepAccessList(FileHandle file, const Target& target, unsigned& mode);

    FileSystem& files_;
    ReplacementObserver* observer_;
    bool inPlace_ = false;
};

} // namespace platform
