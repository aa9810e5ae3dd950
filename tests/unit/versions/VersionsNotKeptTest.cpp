// Folders and disks where no version can be kept: every write succeeds all the same.

#include "tests/unit/versions/VersionFixture.h"

namespace wardlock::test {
namespace {

using Values = std::vector<int>;
using State = platform::VersionFolder::State;

class VersionsNotKept : public VersionFixture {
protected:
    void expectWrittenWithoutAVersion() {
        EXPECT_TRUE(write(1).written);
        EXPECT_TRUE(write(2).written);
        EXPECT_EQ(memory.contents(document), bytesOf(2));
    }
};

TEST_F(VersionsNotKept, LeaveALinkInTheFoldersPlaceAlone) {
    memory.addFolder("/elsewhere");
    memory.addLink(history, "/elsewhere");
    expectWrittenWithoutAVersion();
    EXPECT_TRUE(memory.names("/elsewhere").empty());
    EXPECT_EQ(folder().state(), State::NotAFolder);
}

TEST_F(VersionsNotKept, LeaveAFileInTheFoldersPlaceAlone) {
    memory.addFile(history, "file");
    expectWrittenWithoutAVersion();
    EXPECT_EQ(memory.contents(history), "file");
    EXPECT_EQ(folder().state(), State::NotAFolder);
}

TEST_F(VersionsNotKept, LeaveAFolderOfAnotherUserEmpty) {
    memory.actAs(1001, 1001);
    memory.addFolder(history, 0777);
    memory.actAs(parent, parent);
    expectWrittenWithoutAVersion();
    EXPECT_TRUE(memory.names(history).empty());
    EXPECT_EQ(folder().state(), State::OfAnotherUser);
}

TEST_F(VersionsNotKept, LeaveAFolderThatIsOpenToOthersEmpty) {
    for (const unsigned mode : {0710u, 0740u, 0720u, 0701u, 0704u, 0702u}) {
        memory.addFolder(history, mode);
        expectWrittenWithoutAVersion();
        EXPECT_TRUE(memory.names(history).empty()) << mode;
        EXPECT_EQ(folder().state(), State::OpenToOthers) << mode;
    }
}

TEST_F(VersionsNotKept, LetEveryWriteSucceedInAnUnwritableFolder) {
    memory.addFolder(history, 0500);
    expectWrittenWithoutAVersion();
    EXPECT_TRUE(memory.names(history).empty());
    EXPECT_EQ(folder().state(), State::Usable);
}

TEST_F(VersionsNotKept, LetRootCreateNoFolderForAnotherUser) {
    memory.actAs(0, 0);
    expectWrittenWithoutAVersion();
    EXPECT_FALSE(memory.statusOf(history)) << "the user could keep no further version";
}

TEST_F(VersionsNotKept, LetEveryWriteSucceedWithoutHardLinks) {
    files.failEvery("link", std::errc::operation_not_permitted);
    expectWrittenWithoutAVersion();
    EXPECT_TRUE(values().empty());
}

TEST_F(VersionsNotKept, LetEveryWriteSucceedInAFolderThatCannotBeListed) {
    write(7);
    files.before("list", [this] { files.failEvery("list", std::errc::io_error); });
    expectWrittenWithoutAVersion();
    EXPECT_EQ(values(), Values{7}) << "a number out of order";
}

} // namespace
} // namespace wardlock::test
