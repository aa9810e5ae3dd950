#pragma once

#include "platform/base/Export.h"
#include "platform/files/Sync.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace platform {

enum class FileKind { Regular, Folder, Link, Other };

/// What is known of a file without reading it.
struct FileStatus {
    FileKind kind = FileKind::Other;
    unsigned mode = 0; ///< the permission bits, set-id and sticky bits included
    std::uint32_t owner = 0;
    std::uint32_t group = 0;
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t links = 0; ///< names that the file still has; 0 once it is removed
    std::uint64_t size = 0;
};

/// An open file; -1 for none.
using FileHandle = int;
inline constexpr FileHandle noFile = -1;

/// How a path is read whose last component is a symbolic link.
enum class Links { Follow, NoFollow };

/// The file calls of the platform layer, one function per call. The code above runs unchanged over the real
/// files, over a memory double and over one that injects faults.
///
/// Paths are paths of this machine. Every function returns no error on success; on an error it leaves its
/// output parameters alone. A call may be interrupted (std::errc::interrupted) and a write may be short;
/// callers handle both. The caller closes the handles that it opened. Thread-safe.
class WARDLOCK_API FileSystem {
public:
    virtual ~FileSystem();

    /// Returns the process's file system: the one that was set, else the operating system's own.
    static FileSystem& current();
    /// Null restores the operating system's own. The caller keeps ownership.
    static void setCurrent(FileSystem* files);
    /// Returns the operating system's own: the files of this machine.
    static FileSystem& native();

    /// Returns the user to whom the files belong that these calls create.
    virtual std::uint32_t user() const = 0;

    virtual std::error_code status(const std::string& path, Links links, FileStatus& status) = 0;
    virtual std::error_code status(FileHandle file, FileStatus& status) = 0;
    /// Reads the text of a symbolic link. std::errc::permission_denied where the link belongs neither to this
    /// user nor to root. No function below follows such a link in the last component either.
    virtual std::error_code readLink(const std::string& path, std::string& target) = 0;
    /// Finds the path without links, "." and ".."; the path must exist.
    virtual std::error_code resolve(const std::string& path, std::string& resolved) = 0;
    /// Reads all bytes of a regular file; std::errc::file_too_large beyond `maximum` bytes.
    virtual std::error_code readFile(const std::string& path, std::size_t maximum, std::string& bytes) = 0;
    /// Finds whether `bytes` are all that a regular file contains. By default reads the file; a file system
    /// may save the memory for that.
    virtual std::error_code compareFile(const std::string& path, std::string_view bytes, bool& same);
    /// Lists the names in a folder, without "." and "..", in no order.
    virtual std::error_code list(const std::string& folder, std::vector<std::string>& names) = 0;

    /// Creates a file, open for writing; std::errc::file_exists when the path is taken.
    virtual std::error_code create(const std::string& path, unsigned mode, FileHandle& file) = 0;
    /// Opens an existing regular file for reading; a symbolic link is not followed.
    virtual std::error_code open(const std::string& path, FileHandle& file) = 0;
    /// Opens an existing regular file for writing at its end. Never creates one.
    virtual std::error_code openToAppend(const std::string& path, FileHandle& file) = 0;
    /// Takes the file's advisory lock, which ends with the handle or the process;
    /// std::errc::operation_would_block when another handle has it.
    virtual std::error_code lock(FileHandle file) = 0;
    /// Writes `bytes` or a beginning of them; `written` is the number of bytes that were written.
    virtual std::error_code write(FileHandle file, std::string_view bytes, std::size_t& written) = 0;
    virtual std::error_code setMode(FileHandle file, unsigned mode) = 0;
    virtual std::error_code setOwner(FileHandle file, std::uint32_t owner, std::uint32_t group) = 0;
    /// Changes the group alone.
    virtual std::error_code setGroup(FileHandle file, std::uint32_t group) = 0;
    /// Gives the open file the access list of the one at `path`; none where that has none. Such a list gives
    /// rights to single users and groups beyond the permission bits. By default there are no such lists.
    virtual std::error_code copyAccessList(const std::string& path, FileHandle file);
    /// Waits until the file is on the disk: its data, or everything with Sync::Full.
    virtual std::error_code sync(FileHandle file, Sync sync) = 0;
    /// Releases the handle, also when an error is returned.
    virtual std::error_code close(FileHandle file) = 0;

    /// Moves `from` to `to` in one step and replaces what is there.
    virtual std::error_code rename(const std::string& from, const std::string& to) = 0;
    /// Creates a second name for the same file; std::errc::file_exists when the name is taken.
    virtual std::error_code link(const std::string& file, const std::string& name) = 0;
    virtual std::error_code makeSymbolicLink(const std::string& target, const std::string& path) = 0;
    virtual std::error_code syncFolder(const std::string& folder) = 0;
    /// Removes a file, a link or an empty folder.
    virtual std::error_code remove(const std::string& path) = 0;
    virtual std::error_code makeFolder(const std::string& path, unsigned mode) = 0;
};

/// Repeats a call for as long as it is interrupted.
template <class Call>
std::error_code uninterrupted(Call call) {
    std::error_code error;
    do
        error = call();
    while (error == std::errc::interrupted);
    return error;
}

/// Creates the folder and those above it that are missing. An existing folder is not an error.
WARDLOCK_API std::error_code makeFolders(FileSystem& files, const std::string& path, unsigned mode);

/// Writes all bytes, in as many single writes as it takes.
WARDLOCK_API std::error_code writeAll(FileSystem& files, FileHandle file, std::string_view bytes);

/// Writes at the end of an existing file; never creates one.
WARDLOCK_API std::error_code appendToFile(FileSystem& files, const std::string& path, std::string_view bytes);

/// More links in a row are an error; the kernel's own bound.
inline constexpr int longestLinkChain = 40;

/// Returns where a symbolic link with this text leads.
WARDLOCK_API std::string linkDestination(const std::string& link, const std::string& text);

/// Follows links in the last component. `path` becomes the name of something other than a link, or of nothing
/// (std::errc::no_such_file_or_directory). `status` describes what is there.
WARDLOCK_API std::error_code followLinks(FileSystem& files, std::string& path, FileStatus& status);

/// Returns the folder part of a path: "/" of "/a", "." of "a".
WARDLOCK_API std::string folderOf(const std::string& path);

} // namespace platform
