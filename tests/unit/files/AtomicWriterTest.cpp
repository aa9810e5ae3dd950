#include "platform/files/AtomicWriter.h"

#include "tests/support/doubles/FaultyFileSystem.h"
#include "tests/support/doubles/MemoryFileSystem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace wardlock::test {
namespace {

using platform::Attributes;
using platform::FileHandle;
using platform::Sync;
using Contents = std::optional<std::string>;

constexpr std::uint32_t parent = 1000;
constexpr std::uint32_t other = 1001;

/// A folder "/d" in memory, and a writer over it whose calls can fail.
struct Stage {
    Stage() { memory.addFolder("/d"); }

    std::error_code write(std::string_view bytes, Sync sync = Sync::Full, const std::string& path = "/d/a") {
        return platform::AtomicWriter(files).write(path, bytes, sync);
    }
    /// A temporary as a write that has begun leaves it: locked by another handle.
    FileHandle beginTemporary(const std::string& path) {
        FileHandle file = platform::noFile;
        EXPECT_FALSE(memory.create(path, 0600, file));
        EXPECT_FALSE(memory.lock(file));
        return file;
    }

    MemoryFileSystem memory;
    FaultyFileSystem files{memory};
};

class AtomicWriter : public ::testing::Test, protected Stage {};

constexpr const char* temporary = "/d/.a.0123456789abcdef.wardlock-new";

TEST_F(AtomicWriter, CreatesANewFileForItsOwnerAlone) {
    ASSERT_FALSE(write("new"));
    EXPECT_EQ(memory.contents("/d/a"), "new");
    EXPECT_EQ(memory.statusOf("/d/a")->mode, 0600u);
    EXPECT_EQ(memory.names("/d"), std::vector<std::string>{"a"});
    EXPECT_EQ(memory.openHandles(), 0u);
}

TEST_F(AtomicWriter, WritesAnEmptyFile) {
    memory.addFile("/d/a", "old");
    ASSERT_FALSE(write(""));
    EXPECT_EQ(memory.contents("/d/a"), "");
}

TEST_F(AtomicWriter, SyncsTheFileBeforeTheRenameAndTheFolderAfterIt) {
    memory.addFile("/d/a", "old");
    ASSERT_FALSE(write("new"));
    EXPECT_EQ(memory.calls(),
              (std::vector<std::string>{"create /d/TEMPORARY", "lock /d/TEMPORARY", "write /d/TEMPORARY",
                                        "sync all of /d/TEMPORARY", "close /d/TEMPORARY",
                                        "rename /d/TEMPORARY /d/a", "syncFolder /d"}));
}

TEST_F(AtomicWriter, SyncsTheDataAloneOnRequest) {
    ASSERT_FALSE(write("new", Sync::Data));
    EXPECT_EQ(memory.calls(), (std::vector<std::string>{"create /d/TEMPORARY", "lock /d/TEMPORARY",
                                                        "write /d/TEMPORARY", "sync data of /d/TEMPORARY",
                                                        "close /d/TEMPORARY", "rename /d/TEMPORARY /d/a"}));
}

TEST_F(AtomicWriter, SyncsNothingOnRequest) {
    ASSERT_FALSE(write("new", Sync::None));
    EXPECT_EQ(memory.calls(),
              (std::vector<std::string>{"create /d/TEMPORARY", "lock /d/TEMPORARY", "write /d/TEMPORARY",
                                        "close /d/TEMPORARY", "rename /d/TEMPORARY /d/a"}));
}

TEST_F(AtomicWriter, NeverOpensOrLocksTheFileItself) {
    memory.addFile("/d/a", "old");
    ASSERT_FALSE(write("new"));
    for (const std::string& call : memory.calls())
        EXPECT_TRUE(!call.ends_with(" /d/a") || call.starts_with("rename ")) << call;
}

TEST_F(AtomicWriter, GivesEveryTemporaryItsOwnName) {
    const FileHandle first = beginTemporary(temporary);
    ASSERT_FALSE(write("new"));
    EXPECT_EQ(memory.contents("/d/a"), "new");
    EXPECT_EQ(memory.contents(temporary), "");
    EXPECT_FALSE(memory.close(first));
}

TEST_F(AtomicWriter, TakesAnotherNameWhenTheTemporarysIsTaken) {
    files.failCall(3, std::errc::file_exists); // status, list, create
    ASSERT_FALSE(write("new"));
    EXPECT_EQ(memory.contents("/d/a"), "new");
}

TEST_F(AtomicWriter, GivesUpWhereEveryNameIsTaken) {
    files.failEvery("create", std::errc::file_exists);
    EXPECT_EQ(write("new"), std::errc::file_exists);
}

TEST_F(AtomicWriter, KeepsTheTemporarysNameShortEnoughForALongOne) {
    const std::string longest = "/d/" + std::string(255, 'x');
    ASSERT_FALSE(write("new", Sync::None, longest));
    EXPECT_EQ(memory.contents(longest), "new");
    memory.endProcess();
    files.killFrom(files.calls() + 5); // status, list, create, lock
    EXPECT_TRUE(write("newer", Sync::None, longest));
    for (const std::string& name : memory.names("/d"))
        EXPECT_LE(name.size(), 255u);
    EXPECT_EQ(memory.names("/d").size(), 2u);
}

TEST_F(AtomicWriter, WritesAllBytesHoweverShortTheSingleWritesAre) {
    files.limitWrites(1);
    ASSERT_FALSE(write("newer content"));
    EXPECT_EQ(memory.contents("/d/a"), "newer content");
    EXPECT_EQ(std::ranges::count(memory.calls(), "write /d/TEMPORARY"), 13);
}

TEST_F(AtomicWriter, FailsWhenAWriteAcceptsNoBytes) {
    memory.addFile("/d/a", "old");
    files.limitWrites(0);
    EXPECT_EQ(write("new"), std::errc::io_error);
    EXPECT_EQ(memory.contents("/d/a"), "old");
}

TEST_F(AtomicWriter, ContinuesAfterEveryInterruption) {
    memory.addFile("/d/a", "old", 0640, parent, parent);
    memory.addFile(temporary, "left");
    files.interruptCalls();
    ASSERT_FALSE(write("new"));
    EXPECT_EQ(memory.contents("/d/a"), "new");
    EXPECT_EQ(memory.statusOf("/d/a")->mode, 0640u);
    EXPECT_EQ(memory.names("/d"), std::vector<std::string>{"a"});
}

TEST_F(AtomicWriter, KeepsTheModeAndTheOwnerOfTheOldFile) {
    memory.addFile("/d/a", "old", 0664, parent, other);
    ASSERT_FALSE(write("new"));
    EXPECT_EQ(memory.statusOf("/d/a")->mode, 0664u);
    EXPECT_EQ(memory.statusOf("/d/a")->owner, parent);
    EXPECT_EQ(memory.statusOf("/d/a")->group, other);
}

TEST_F(AtomicWriter, ReplacesAFileItsOwnerMayOnlyRead) {
    memory.addFile("/d/a", "old", 0444);
    ASSERT_FALSE(write("new"));
    EXPECT_EQ(memory.statusOf("/d/a")->mode, 0444u);
}

TEST_F(AtomicWriter, ReplacesAFileByAPrivateOneOnRequest) {
    memory.addFile("/d/a", "old", 0666, parent, parent);
    ASSERT_FALSE(platform::AtomicWriter(files).write("/d/a", "new", Sync::Full, Attributes::Private));
    EXPECT_EQ(memory.statusOf("/d/a")->mode, 0600u);
    EXPECT_EQ(memory.statusOf("/d/a")->owner, 0u);
}

TEST_F(AtomicWriter, KeepsTheGroupAloneWhenItMayNotChangeTheOwner) {
    memory.addFolder("/shared", 0777);
    memory.addFile("/shared/a", "old", 0660, other, 50);
    memory.actAs(parent, 50);
    ASSERT_FALSE(write("new", Sync::Full, "/shared/a"));
    EXPECT_EQ(memory.contents("/shared/a"), "new");
    EXPECT_EQ(memory.statusOf("/shared/a")->mode, 0660u);
    EXPECT_EQ(memory.statusOf("/shared/a")->owner, parent);
    EXPECT_EQ(memory.statusOf("/shared/a")->group, 50u);
}

TEST_F(AtomicWriter, GivesTheOldGroupsRightsToNoOtherGroup) {
    memory.addFolder("/shared", 0777);
    memory.addFile("/shared/a", "old", 06664, other, other);
    memory.actAs(parent, parent);
    ASSERT_FALSE(write("new", Sync::Full, "/shared/a"));
    EXPECT_EQ(memory.statusOf("/shared/a")->mode, 0644u);
    EXPECT_EQ(memory.statusOf("/shared/a")->group, parent);
}

TEST_F(AtomicWriter, GivesTheGroupTheRightsOfAllOthersWhereTheAccessListCannotBeKept) {
    memory.addFile("/d/a", "old", 0664, parent, other);
    files.failEvery("copyAccessList", std::errc::operation_not_permitted);
    ASSERT_FALSE(write("new"));
    EXPECT_EQ(memory.statusOf("/d/a")->mode, 0644u);
}

TEST_F(AtomicWriter, LeavesTheOldFileWhereADiskErrorKeepsTheAccessListFromBeingSet) {
    memory.addFile("/d/a", "old", 0660);
    files.failEvery("copyAccessList", std::errc::io_error);
    EXPECT_EQ(write("new"), std::errc::io_error);
    EXPECT_EQ(memory.contents("/d/a"), "old");
}

TEST_F(AtomicWriter, ReportsAFileThatIsInPlaceAndMayBeLost) {
    platform::AtomicWriter writer(files);
    files.failEvery("syncFolder", std::errc::io_error);
    EXPECT_EQ(writer.write("/d/a", "new", Sync::Full), std::errc::io_error);
    EXPECT_TRUE(writer.isInPlace());
    EXPECT_EQ(memory.contents("/d/a"), "new");
    EXPECT_EQ(writer.write("/none/a", "new", Sync::Full), std::errc::no_such_file_or_directory);
    EXPECT_FALSE(writer.isInPlace());
}

TEST_F(AtomicWriter, LeavesTheOldFileWhereADiskErrorKeepsTheOwnerFromBeingSet) {
    memory.addFile("/d/a", "old", 0640, parent, parent);
    files.failEvery("setOwner", std::errc::io_error);
    EXPECT_EQ(write("new"), std::errc::io_error);
    EXPECT_EQ(memory.contents("/d/a"), "old");
    EXPECT_EQ(memory.statusOf("/d/a")->owner, parent);
}

TEST_F(AtomicWriter, LeavesTheOldFileWhereADiskErrorKeepsTheGroupFromBeingSet) {
    memory.addFile("/d/a", "old", 0640, parent, parent);
    files.failEvery("setOwner", std::errc::operation_not_permitted);
    files.failEvery("setGroup", std::errc::io_error);
    EXPECT_EQ(write("new"), std::errc::io_error);
    EXPECT_EQ(memory.contents("/d/a"), "old");
}

TEST_F(AtomicWriter, WritesWhereTheOldOwnerHasNoNumber) {
    memory.addFile("/d/a", "old", 0640, parent, parent);
    files.failEvery("setOwner", std::errc::invalid_argument);
    ASSERT_FALSE(write("new"));
    EXPECT_EQ(memory.contents("/d/a"), "new");
}

TEST_F(AtomicWriter, WritesWhereTheFileSystemHasNoModes) {
    memory.addFile("/d/a", "old", 0755);
    files.failEvery("setMode", std::errc::operation_not_permitted);
    ASSERT_FALSE(write("new"));
    EXPECT_EQ(memory.contents("/d/a"), "new");
}

TEST_F(AtomicWriter, WritesWhereTheFileSystemHasNoLocks) {
    files.failEvery("lock", std::errc::no_lock_available);
    ASSERT_FALSE(write("new"));
    EXPECT_EQ(memory.contents("/d/a"), "new");
}

TEST_F(AtomicWriter, FollowsASymbolicLinkAndKeepsIt) {
    memory.addFolder("/e");
    memory.addFile("/e/real", "old", 0640);
    memory.addLink("/d/a", "/e/real");
    ASSERT_FALSE(write("new"));
    EXPECT_EQ(memory.statusOf("/d/a")->kind, platform::FileKind::Link);
    EXPECT_EQ(memory.contents("/e/real"), "new");
    EXPECT_EQ(memory.statusOf("/e/real")->mode, 0640u);
    EXPECT_EQ(memory.calls().front(), "create /e/TEMPORARY");
    EXPECT_EQ(memory.calls().back(), "syncFolder /e");
}

TEST_F(AtomicWriter, FollowsAChainOfRelativeLinksToAFileThatIsMissing) {
    memory.addLink("/d/a", "b");
    memory.addLink("/d/b", "c");
    ASSERT_FALSE(write("new"));
    EXPECT_EQ(memory.statusOf("/d/b")->kind, platform::FileKind::Link);
    EXPECT_EQ(memory.contents("/d/c"), "new");
}

TEST_F(AtomicWriter, RefusesLinksThatGoInCircles) {
    memory.addLink("/d/a", "b");
    memory.addLink("/d/b", "a");
    EXPECT_EQ(write("new"), std::errc::too_many_symbolic_link_levels);
}

TEST_F(AtomicWriter, RefusesAFolderInTheFilesPlace) {
    memory.addFolder("/d/a");
    EXPECT_EQ(write("new"), std::errc::is_a_directory);
    EXPECT_EQ(memory.statusOf("/d/a")->kind, platform::FileKind::Folder);
    EXPECT_TRUE(memory.calls().empty());
}

TEST_F(AtomicWriter, CreatesNoMissingFolder) {
    EXPECT_EQ(write("new", Sync::Full, "/none/a"), std::errc::no_such_file_or_directory);
    EXPECT_FALSE(memory.statusOf("/none"));
}

TEST_F(AtomicWriter, ReportsAFolderThatMayNotBeChanged) {
    memory.addFolder("/locked", 0555);
    memory.addFile("/locked/a", "old", 0666, parent);
    memory.actAs(parent, parent);
    EXPECT_EQ(write("new", Sync::Full, "/locked/a"), std::errc::permission_denied);
    EXPECT_EQ(memory.contents("/locked/a"), "old");
}

TEST_F(AtomicWriter, LeavesTheOldFileAndNothingElseOnAFullDisk) {
    memory.addFile("/d/a", "old");
    memory.setCapacity(5);
    EXPECT_EQ(write("newer"), std::errc::no_space_on_device);
    EXPECT_EQ(memory.contents("/d/a"), "old");
    EXPECT_EQ(memory.names("/d"), std::vector<std::string>{"a"});
}

TEST_F(AtomicWriter, FreesTheRoomOfLeftoversBeforeItWrites) {
    memory.addFile("/d/a", "old");
    memory.addFile(temporary, "12345");
    memory.setCapacity(8);
    EXPECT_FALSE(write("newer"));
}

TEST_F(AtomicWriter, RemovesATemporaryWhoseProcessIsGone) {
    memory.addFile(temporary, "half");
    memory.addFile("/d/.another.plist.00000000000000ff.wardlock-new", "half");
    ASSERT_FALSE(write("new"));
    EXPECT_EQ(memory.names("/d"), std::vector<std::string>{"a"});
}

TEST_F(AtomicWriter, LeavesTheTemporaryOfALiveProcess) {
    beginTemporary(temporary);
    ASSERT_FALSE(write("new"));
    EXPECT_TRUE(memory.statusOf(temporary));
    memory.endProcess();
    ASSERT_FALSE(write("newer"));
    EXPECT_FALSE(memory.statusOf(temporary));
}

TEST_F(AtomicWriter, RemovesNothingThatOnlyLooksLikeATemporary) {
    const std::vector<std::string> others = {".a.0123456789abcde.wardlock-new",
                                             ".a.0123456789abcdeg.wardlock-new",
                                             ".wardlock-new",
                                             "a.0123456789abcdef.wardlock-new",
                                             ".a0123456789abcdef.wardlock-new",
                                             ".a.0123456789abcdef.wardlock-new~"};
    for (const std::string& name : others)
        memory.addFile("/d/" + name, "mine");
    memory.addFolder(temporary);
    ASSERT_FALSE(write("new"));
    for (const std::string& name : others)
        EXPECT_TRUE(memory.statusOf("/d/" + name)) << name;
    EXPECT_TRUE(memory.statusOf(temporary));
}

TEST_F(AtomicWriter, BeginsAgainWhenItsTemporaryWasTakenForALeftover) {
    const auto sweep = [this] {
        for (const std::string& name : memory.names("/d"))
            EXPECT_FALSE(memory.remove("/d/" + name));
    };
    for (const char* moment : {"lock", "rename"}) {
        memory.forgetCalls();
        files.before(moment, sweep);
        ASSERT_FALSE(write(moment)) << moment;
        EXPECT_EQ(memory.contents("/d/a"), moment);
        EXPECT_EQ(std::ranges::count(memory.calls(), "create /d/TEMPORARY"), 2) << moment;
    }
}

TEST_F(AtomicWriter, WritesNothingIntoATemporaryThatIsGoneAlready) {
    files.before("lock", [this] { EXPECT_FALSE(memory.remove("/d/" + memory.names("/d").front())); });
    ASSERT_FALSE(write("new"));
    EXPECT_EQ(std::ranges::count(memory.calls(), "write /d/TEMPORARY"), 1);
}

TEST_F(AtomicWriter, BeginsAgainWhileAnotherProcessLocksItsTemporary) {
    FileHandle sweeper = platform::noFile;
    files.before("lock", [&] {
        ASSERT_FALSE(memory.open("/d/" + memory.names("/d").front(), sweeper));
        ASSERT_FALSE(memory.lock(sweeper));
    });
    ASSERT_FALSE(write("new"));
    EXPECT_EQ(memory.contents("/d/a"), "new");
    EXPECT_EQ(memory.names("/d"), std::vector<std::string>{"a"});
    EXPECT_EQ(std::ranges::count(memory.calls(), "create /d/TEMPORARY"), 2);
}

TEST_F(AtomicWriter, GivesUpWhenItsTemporariesKeepVanishing) {
    memory.addFile("/d/a", "old");
    files.failEvery("rename", std::errc::no_such_file_or_directory);
    EXPECT_TRUE(write("new"));
    EXPECT_EQ(memory.contents("/d/a"), "old");
    EXPECT_EQ(memory.names("/d"), std::vector<std::string>{"a"});
}

/// The stage with an old file of another owner and a leftover, so that a write makes every call it can.
struct FullStage : Stage {
    FullStage() {
        memory.addFile("/d/a", "old", 0640, parent, parent);
        memory.addFile(temporary, "left");
    }
    static std::size_t callsOfWrite(Sync sync) {
        FullStage stage;
        EXPECT_FALSE(stage.write("new", sync));
        return stage.files.calls();
    }
};

class AtomicWriterFault : public ::testing::TestWithParam<Sync> {};

TEST_P(AtomicWriterFault, LeavesOldOrNewContentAndNoTemporaryAtAnyCall) {
    const std::size_t count = FullStage::callsOfWrite(GetParam());
    ASSERT_GT(count, 8u);
    for (std::size_t number = 1; number <= count; ++number) {
        SCOPED_TRACE(number);
        FullStage run;
        run.files.failCall(number, std::errc::io_error);
        const std::error_code error = run.write("new", GetParam());
        const bool renamed = run.memory.contents("/d/a") == "new";
        EXPECT_EQ(run.memory.contents("/d/a"), renamed ? "new" : "old");
        EXPECT_TRUE(error || renamed) << "a failure not reported";
        EXPECT_TRUE(!error || !renamed || number == count) << "only the folder's sync comes after the rename";
        for (const std::string& name : run.memory.names("/d"))
            EXPECT_TRUE(name == "a" || "/d/" + name == temporary) << name;
        EXPECT_EQ(run.memory.openHandles(), 0u);
    }
}

TEST_P(AtomicWriterFault, LeavesOldOrNewContentOfAKilledProcessAndIsClearedByTheNextWrite) {
    const std::size_t count = FullStage::callsOfWrite(GetParam());
    std::size_t leftBehind = 0;
    for (std::size_t number = 1; number <= count; ++number) {
        SCOPED_TRACE(number);
        FullStage run;
        run.files.killFrom(number);
        EXPECT_TRUE(run.write("new", GetParam()));
        EXPECT_TRUE(run.memory.contents("/d/a") == "old" || run.memory.contents("/d/a") == "new");
        leftBehind += run.memory.names("/d").size() > 1;
        run.memory.endProcess();
        ASSERT_FALSE(platform::AtomicWriter(run.memory).write("/d/a", "newer", GetParam()));
        EXPECT_EQ(run.memory.contents("/d/a"), "newer");
        EXPECT_EQ(run.memory.statusOf("/d/a")->mode, 0640u);
        EXPECT_EQ(run.memory.names("/d"), std::vector<std::string>{"a"});
    }
    EXPECT_GT(leftBehind, 0u) << "no kill left a temporary: the clearing was not tried";
}

INSTANTIATE_TEST_SUITE_P(EverySync, AtomicWriterFault, ::testing::Values(Sync::None, Sync::Data, Sync::Full),
                         [](const auto& info) {
                             return info.param == Sync::None   ? "None"
                                    : info.param == Sync::Data ? "Data"
                                                               : "Full";
                         });

class AtomicWriterPowerCut : public ::testing::TestWithParam<Sync> {};

TEST_P(AtomicWriterPowerCut, LeavesOldOrNewContentAfterAnyCall) {
    const std::size_t count = FullStage::callsOfWrite(GetParam());
    for (std::size_t number = 1; number <= count + 1; ++number) {
        SCOPED_TRACE(number);
        FullStage run;
        run.files.killFrom(number);
        (void)run.write("new", GetParam());
        for (const Contents& left : run.memory.afterPowerCut("/d/a"))
            EXPECT_TRUE(left == "old" || left == "new") << left.value_or("no file");
    }
}

INSTANTIATE_TEST_SUITE_P(EverySafeSync, AtomicWriterPowerCut, ::testing::Values(Sync::Data, Sync::Full),
                         [](const auto& info) { return info.param == Sync::Data ? "Data" : "Full"; });

TEST_F(AtomicWriter, LeavesTheNewContentForSureOnceAFullySyncedWriteIsDone) {
    memory.addFile("/d/a", "old");
    ASSERT_FALSE(write("new", Sync::Full));
    EXPECT_EQ(memory.afterPowerCut("/d/a"), std::set<Contents>{"new"});
}

TEST_F(AtomicWriter, MayLoseAWriteThatWasNotSynced) {
    memory.addFile("/d/a", "old");
    ASSERT_FALSE(write("new", Sync::None));
    EXPECT_EQ(memory.afterPowerCut("/d/a"), (std::set<Contents>{"old", "", "n", "new"}));
}

} // namespace
} // namespace wardlock::test
