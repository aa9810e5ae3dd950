#pragma once

#include "platform/files/FileSystem.h"

namespace platform::posix {

/// The files of this machine. Handles are close-on-exec file descriptors.
///
/// - Only regular files are opened, so that a pipe or a device in a file's place cannot block.
/// - No file is opened for writing under the number of a standard stream that is closed.
/// - Symbolic links of other users are refused as TrustedSymlink.h documents.
class WARDLOCK_API PosixFileSystem : public FileSystem {
public:
    std::uint32_t user() const override;
    std::error_code status(const std::string& path, Links links, FileStatus& status) override;
    std::error_code status(FileHandle file, FileStatus& status) override;
    std::error_code readLink(const std::string& path, std::string& target) override;
    std::error_code resolve(const std::string& path, std::string& resolved) override;
    std::error_code readFile(const std::string& path, std::size_t maximum, std::string& bytes) override;
    std::error_code compareFile(const std::string& path, std::string_view bytes, bool& same) override;
    std::error_code list(const std::string& folder, std::vector<std::string>& names) override;
    std::error_code create(const std::string& path, unsigned mode, FileHandle& file) override;
    std::error_code open(const std::string& path, FileHandle& file) override;
    std::error_code openToAppend(const std::string& path, FileHandle& file) override;
    std::error_code lock(FileHandle file) override;
    std::error_code write(FileHandle file, std::string_view bytes, std::size_t& written) override;
    std::error_code setMode(FileHandle file, unsigned mode) override;
    std::error_code setOwner(FileHandle file, std::uint32_t owner, std::uint32_t group) override;
    std::error_code setGroup(FileHandle file, std::uint32_t group) override;
    std::error_code copyAccessList(const std::string& path, FileHandle file) override;
    std::error_code sync(FileHandle file, Sync sync) override;
    std::error_code close(FileHandle file) override;
    std::error_code rename(const std::string& from, const std::string& to) override;
    std::error_code link(const std::string& file, const std::string& name) override;
    std::error_code makeSymbolicLink(const std::string& target, const std::string& path) override;
    /// Returns no error where the folder's file system does not support it, or where the folder may be
    /// changed and not read: nothing more can be done there.
    std::error_code syncFolder(const std::string& folder) override;
    std::error_code remove(const std::string& path) override;
    std::error_code makeFolder(const std::string& path, unsigned mode) override;
};

} // namespace platform::posix
