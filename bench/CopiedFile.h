#pragma once

#include <filesystem>
#include <string>

namespace wardlock::bench {

/// A copy of a file in a temporary folder of its own, removed with this object.
class CopiedFile {
public:
    explicit CopiedFile(const std::filesystem::path& original);
    ~CopiedFile();
    CopiedFile(const CopiedFile&) = delete;
    CopiedFile& operator=(const CopiedFile&) = delete;

    const std::string& path() const { return path_; }

private:
    std::filesystem::path folder_;
    std::string path_;
};

} // namespace wardlock::bench
