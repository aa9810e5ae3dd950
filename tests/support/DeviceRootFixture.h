#pragma once

#include "tests/support/Environment.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace wardlock::test {

/// A test with a device root of its own, named by WARDLOCK_DEVICE_ROOT: var/mobile/Library/Preferences, tmp,
/// Applications and Library/MobileSubstrate/DynamicLibraries, all empty. HOME, XDG_DATA_HOME,
/// XDG_CONFIG_HOME, XDG_CACHE_HOME and XDG_RUNTIME_DIR (0700) are private folders beside it. No
/// process listens at the named session bus. Without a name the product would start a bus that outlives the
/// test. BusFixture.h has a bus. The environment is put back and everything removed at the end.
///
/// Paths are device paths ("/var/mobile/..."). The helpers use the machine's own file calls, never the
/// product's.
class DeviceRootFixture : public ::testing::Test {
protected:
    static constexpr const char* documentPath = "/var/mobile/Library/Preferences/com.tavix.wardlock.plist";
    static constexpr const char* logPath = "/var/mobile/com.tavix.wardlock_log";

    DeviceRootFixture();
    ~DeviceRootFixture() override;

    /// The device root's folder.
    const std::string& root() const { return root_; }
    /// The private folder that contains the device root, home and the run-time folder.
    const TemporaryFolder& folder() const { return folder_; }
    /// The path of this machine for a device path.
    std::string onDisk(std::string_view devicePath) const;

    /// Replaces the file's bytes, making the folders above it.
    void writeFile(std::string_view devicePath, std::string_view bytes) const;
    /// The file's bytes; a failed expectation and nothing when it cannot be read.
    std::string readFile(std::string_view devicePath) const;
    /// Whether the path exists, as a broken symbolic link too.
    bool exists(std::string_view devicePath) const;
    void removeFile(std::string_view devicePath) const;
    void makeFolder(std::string_view devicePath) const;
    /// Links the bundle with a row of every kind into the device root.
    void installFixtureBundle() const;

    Environment environment;

private:
    TemporaryFolder folder_;
    std::string root_;
};

} // namespace wardlock::test
