#include "shell/device/Provision.h"
#include "tests/support/DeviceRootFixture.h"
#include "tests/support/doubles/FaultyFileSystem.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using Sentences = std::vector<std::string>;

/// A device root to which nothing can be written.
class UnwritableRoot : public DeviceRootFixture {
protected:
    UnwritableRoot() { platform::FileSystem::setCurrent(&files); }
    ~UnwritableRoot() override { platform::FileSystem::setCurrent(nullptr); }

    static Sentences problems() { return shell::Provision().problems(); }
    /// What is beside the document, itself included; the folder of its versions does not count.
    std::vector<std::string> filesOfPreferences() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(onDisk("/var/mobile/Library/Preferences")))
            if (entry.path().extension() != ".history")
                names.push_back(entry.path().filename());
        return names;
    }

    FaultyFileSystem files{platform::FileSystem::current()};
};

TEST_F(UnwritableRoot, IsReportedOnceWhereItsFoldersAreMissing) {
    fs::remove_all(root());
    fs::create_directory(root());
    fs::permissions(root(), fs::perms::owner_all);
    files.failEvery("makeFolder", std::errc::read_only_file_system);
    EXPECT_EQ(problems(), Sentences{"cannot write to the device root " + root() + ": Read-only file system"});
}

TEST_F(UnwritableRoot, IsReportedWhereNothingIsMissing) {
    EXPECT_EQ(problems(), Sentences());
    files.fillDiskFrom(1);
    EXPECT_EQ(problems(),
              Sentences{"cannot write to the device root " + root() + ": No space left on device"});
}

TEST_F(UnwritableRoot, IsReportedWhereOnlyNamesFitOnTheDisk) {
    EXPECT_EQ(problems(), Sentences());
    files.failEvery("write", std::errc::io_error);
    EXPECT_EQ(problems(), Sentences{"cannot write to folder " + onDisk("/var/mobile/Library/Preferences") +
                                    ": Input/output error"});
}

TEST_F(UnwritableRoot, NamesTheFirstFolderThatCouldNotBeCreated) {
    fs::remove_all(root());
    files.failEvery("makeFolder", std::errc::permission_denied);
    EXPECT_EQ(problems(), Sentences{"cannot create folder " + root() + ": Permission denied"});
}

TEST_F(UnwritableRoot, IsTriedWithoutATrace) {
    EXPECT_EQ(problems(), Sentences());
    EXPECT_EQ(filesOfPreferences(), Sentences{"com.tavix.wardlock.plist"});
    files.failEvery("rename", std::errc::io_error);
    EXPECT_EQ(problems().size(), 1u);
    EXPECT_EQ(filesOfPreferences(), Sentences{"com.tavix.wardlock.plist"});
}

} // namespace
} // namespace wardlock::test
