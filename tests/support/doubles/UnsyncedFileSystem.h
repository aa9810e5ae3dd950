#pragma once

#include "tests/support/doubles/FaultyFileSystem.h"

namespace wardlock::test {

/// Another file system whose files are never waited for to be on the disk: for thousands of saves one after
/// another.
class UnsyncedFileSystem : public FaultyFileSystem {
public:
    using FaultyFileSystem::FaultyFileSystem;
    std::error_code sync(platform::FileHandle, platform::Sync) override { return {}; }
    std::error_code syncFolder(const std::string&) override { return {}; }
};

} // namespace wardlock::test
