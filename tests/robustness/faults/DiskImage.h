#pragma once

#include "platform/files/FileSystem.h"

#include <compare>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace wardlock::test {

class MemoryFileSystem;

/// A file or a folder as it is on a disk; of a symbolic link only the text counts.
struct FileImage {
    platform::FileKind kind = platform::FileKind::Regular;
    std::string text; ///< a file's bytes, a link's target
    unsigned mode = 0;
    std::uint32_t owner = 0;
    std::uint32_t group = 0;

    auto operator<=>(const FileImage&) const = default;
};

/// All files of some folders, by their paths: taken from the real disk, by the machine's own calls, or from a
/// disk in memory; and put back.
class DiskImage {
public:
    explicit DiskImage(std::vector<std::string> folders) : folders_(std::move(folders)) {}

    static DiskImage of(const std::vector<std::string>& folders);
    static DiskImage of(const MemoryFileSystem& disk, const std::vector<std::string>& folders);

    void add(const std::string& path, FileImage file) { files_[path] = std::move(file); }

    /// The real folders then contain these files and nothing else.
    void restore() const;
    /// The same for folders in memory.
    void restore(MemoryFileSystem& disk) const;

    /// The file at the path, a link itself; null when there is none.
    const FileImage* find(const std::string& path) const;
    /// The bytes at the path, through links.
    std::optional<std::string> contents(const std::string& path) const;
    /// The paths whose name contains the text.
    std::vector<std::string> named(std::string_view text) const;

    auto operator<=>(const DiskImage&) const = default;

private:
    void addAllOf(const MemoryFileSystem& disk, const std::string& folder);

    std::vector<std::string> folders_;
    std::map<std::string, FileImage> files_;
};

} // namespace wardlock::test
