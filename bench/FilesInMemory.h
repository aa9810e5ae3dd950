#pragma once

#include "tests/support/doubles/MemoryFileSystem.h"

namespace wardlock::bench {

/// While it lives, a memory double serves the device's files: the document, and what the pages read of their
/// bundle. A measurement then covers the pages, not the disk.
class FilesInMemory {
public:
    /// Copies what is on the disk now.
    FilesInMemory();
    ~FilesInMemory();
    FilesInMemory(const FilesInMemory&) = delete;
    FilesInMemory& operator=(const FilesInMemory&) = delete;

    /// Gives the first account of a sample document another name, as another process would.
    void changeDocument();

private:
    void copyFile(const std::string& path);
    void makeFoldersAbove(const std::string& path);

    test::MemoryFileSystem files_;
    std::string document_;
    bool renamed_ = false;
};

} // namespace wardlock::bench
