// The doctor's try to store a change, over a disk that refuses it.

#include "cli/doctor/CheckResult.h"
#include "tests/support/DeviceRootFixture.h"
#include "tests/support/doubles/FaultyFileSystem.h"
#include "tests/support/doubles/MemoryFileSystem.h"

#include <cerrno>

namespace wardlock::test {
namespace {

using cli::CheckResult;

class DoctorStorage : public DeviceRootFixture {
protected:
    DoctorStorage() {
        disk.addFolder(folderPath);
        disk.addFile(onDisk(documentPath), std::string(10'000, 'x'));
        platform::FileSystem::setCurrent(&files);
    }
    ~DoctorStorage() override { platform::FileSystem::setCurrent(nullptr); }

    void expectRefused(const std::string& reason, const std::string& text, const std::string& advice) {
        const CheckResult result = cli::checkStorage();
        EXPECT_FALSE(result.works);
        EXPECT_EQ(result.need, CheckResult::Need::Needed);
        EXPECT_EQ(result.facts["reason"], reason);
        EXPECT_EQ(result.text, "no change can be stored in " + folderPath + ": " + text);
        ASSERT_EQ(result.advice.size(), 1u);
        EXPECT_NE(result.advice[0].find(advice), std::string::npos) << result.advice[0];
        EXPECT_EQ(disk.names(folderPath).size(), 1u) << "a file was left";
    }

    const std::string folderPath = onDisk("/var/mobile/Library/Preferences");
    MemoryFileSystem disk;
    FaultyFileSystem files{disk};
};

TEST_F(DoctorStorage, WritesSyncsAndRenamesAFileAndRemovesIt) {
    const CheckResult result = cli::checkStorage();
    EXPECT_TRUE(result.works) << result.text;
    for (const char* step : {"write", "sync", "rename", "syncFolder", "remove"})
        EXPECT_NE(std::ranges::find(files.functions(), step), files.functions().end()) << step;
    EXPECT_EQ(disk.names(folderPath).size(), 1u);
    EXPECT_EQ(disk.contents(onDisk(documentPath)), std::string(10'000, 'x'));
}

TEST_F(DoctorStorage, NamesAFullDisk) {
    files.fillDiskFrom(1);
    expectRefused("full", "the disk is full", "df -h");
}

TEST_F(DoctorStorage, NamesADiskThatIsMountedReadOnly) {
    files.failEvery("create", std::errc::read_only_file_system);
    expectRefused("readOnly", "the disk is mounted read-only", "remount,rw");
}

TEST_F(DoctorStorage, NamesAFolderOfAnotherUser) {
    files.failEvery("create", std::errc::permission_denied);
    expectRefused("notYours", "no permission to write there", "as the owner");
}

TEST_F(DoctorStorage, NamesAQuotaThatIsUsedUp) {
    files.failEvery("write", static_cast<std::errc>(EDQUOT));
    expectRefused("quota", "your quota of that disk is used up", "quota -s");
}

TEST_F(DoctorStorage, NamesASyncOrRenameThatFails) {
    for (const char* step : {"sync", "rename", "syncFolder"}) {
        SCOPED_TRACE(step);
        FaultyFileSystem failing(disk);
        failing.failEvery(step, std::errc::io_error);
        platform::FileSystem::setCurrent(&failing);
        expectRefused("other", "Input/output error", "journalctl");
    }
}

} // namespace
} // namespace wardlock::test
