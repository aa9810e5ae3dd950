// Which versions are kept, of writes of this library and of other programs, in one process over a disk in
// memory.

#include "platform/versions/VersionKeeper.h"
#include "tests/unit/versions/VersionFixture.h"

namespace wardlock::test {
namespace {

using platform::KeepVersions;
using Values = std::vector<int>;

class KeptVersions : public VersionFixture {};

TEST_F(KeptVersions, AreEveryDocumentThatWasWritten) {
    writeMany(1, 4);
    EXPECT_EQ(values(), (Values{1, 2, 3, 4}));
}

TEST_F(KeptVersions, AreLinksOfTheDocumentsThemselves) {
    write(1);
    const auto written = memory.statusOf(document);
    write(2);
    const std::vector<platform::Version> kept = versions();
    ASSERT_EQ(kept.size(), 2u);
    EXPECT_EQ(memory.statusOf(std::string(history) + '/' + kept[0].name())->inode, written->inode);
    EXPECT_EQ(memory.statusOf(std::string(history) + '/' + kept[1].name())->inode,
              memory.statusOf(document)->inode);
}

TEST_F(KeptVersions, AreInAFolderOfTheUserAlone) {
    write(1);
    EXPECT_EQ(memory.statusOf(history)->kind, platform::FileKind::Folder);
    EXPECT_EQ(memory.statusOf(history)->mode, 0700u);
    EXPECT_EQ(memory.statusOf(history)->owner, parent);
}

TEST_F(KeptVersions, AreSynchronisedByNoCallOfTheirOwn) {
    write(1);
    memory.forgetCalls();
    write(2);
    std::size_t synced = 0;
    for (const std::string& call : memory.calls())
        synced += call.starts_with("sync");
    EXPECT_EQ(synced, 2u) << "the file and its folder";
}

TEST_F(KeptVersions, NameTheirWriterAndTheirTime) {
    write(1);
    platform::setVersionPlace("command");
    write(2, {KeepVersions::Always, platform::VersionAction::Undo, 1});
    const auto kept = versions();
    ASSERT_EQ(kept.size(), 2u);
    EXPECT_EQ(kept[0].number, 1u);
    EXPECT_EQ(kept[0].origin.place, "settings");
    EXPECT_EQ(kept[0].origin.action, platform::VersionAction::Change);
    EXPECT_EQ(kept[0].time, now - 1);
    EXPECT_EQ(kept[1].number, 2u);
    EXPECT_EQ(kept[1].origin,
              (platform::VersionOrigin{"command", kept[0].origin.process, platform::VersionAction::Undo, 1}));
    EXPECT_NE(kept[0].origin.process, 0u);
}

TEST_F(KeptVersions, IncludeTheDocumentOfAnEarlierProgram) {
    replaceAsAnotherProgram(bytesOf(7));
    write(8);
    EXPECT_EQ(values(), (Values{7, 8}));
    EXPECT_EQ(versions()[0].origin, platform::VersionOrigin{"unknown"});
}

TEST_F(KeptVersions, IncludeWhatAnotherProgramReplaces) {
    writeMany(1, 2);
    replaceAsAnotherProgram(bytesOf(30));
    write(3);
    EXPECT_EQ(values(), (Values{1, 2, 30, 3}));
    EXPECT_EQ(versions()[2].origin.place, "unknown");
}

TEST_F(KeptVersions, IncludeWhatWasMet) {
    write(1);
    replaceAsAnotherProgram(bytesOf(30));
    meet();
    replaceAsAnotherProgram(bytesOf(31));
    meet();
    EXPECT_EQ(values(), (Values{1, 30, 31}));
}

TEST_F(KeptVersions, AreNotRepeatedWhenTheDocumentIsMetAgain) {
    write(1);
    meet();
    meet();
    EXPECT_EQ(values(), Values{1});
}

TEST_F(KeptVersions, BeginWithTheDocumentThatIsMetFirst) {
    replaceAsAnotherProgram(bytesOf(7));
    meet();
    EXPECT_EQ(values(), Values{7});
}

TEST_F(KeptVersions, AreNotRepeatedForEqualBytes) {
    write(1);
    write(1);
    EXPECT_EQ(values(), Values{1});
    write(2);
    EXPECT_EQ(values(), (Values{1, 2}));
}

TEST_F(KeptVersions, AreNotReadWhereAnotherProgramChangedTheDocumentInPlace) {
    writeMany(1, 2);
    platform::FileHandle file = platform::noFile;
    ASSERT_FALSE(memory.openToAppend(document, file));
    std::size_t written = 0;
    ASSERT_FALSE(memory.write(file, "<!-- -->", written));
    ASSERT_FALSE(memory.close(file));
    write(3);
    // The second version shared its file with the document; what it became is the third.
    EXPECT_EQ(values(), (Values{1, -1, 2, 3}));
    EXPECT_EQ(versions()[2].origin.place, "unknown");
}

TEST_F(KeptVersions, IncludeNoDamage) {
    write(1);
    replaceAsAnotherProgram("damage");
    meet();
    write(2);
    EXPECT_EQ(values(), (Values{1, 2}));
    EXPECT_EQ(memory.contents(std::string(document) + ".damaged"), "damage");
}

TEST_F(KeptVersions, AreBesideTheFileOfALinkedDocument) {
    memory.addFolder("/real");
    memory.addFile("/real/b.plist", bytesOf(1), 0600, parent, parent);
    memory.addLink(document, "/real/b.plist");
    write(2);
    EXPECT_FALSE(memory.statusOf(history));
    EXPECT_EQ(values(), (Values{1, 2}));
    EXPECT_EQ(folder().path(), "/real/b.plist.history");
}

TEST_F(KeptVersions, AreNoneOfAFileThatAnyProgramMayName) {
    write(1, {KeepVersions::WhereFolderExists});
    EXPECT_FALSE(memory.statusOf(history));
    write(2);
    write(3, {KeepVersions::WhereFolderExists});
    EXPECT_EQ(values(), (Values{1, 2, 3}));
}

TEST_F(KeptVersions, AreNoneWhereNoneAreWanted) {
    write(1);
    write(2, {KeepVersions::Never});
    EXPECT_EQ(values(), Values{1});
}

TEST_F(KeptVersions, AreInTheirOrderWhenTheClockJumpsBack) {
    writeMany(1, 2);
    now -= 1'000'000'000;
    writeMany(3, 4);
    EXPECT_EQ(values(), (Values{1, 2, 3, 4}));
    EXPECT_LT(versions()[2].time, versions()[1].time);
}

TEST_F(KeptVersions, LeaveAFailedWriteNoTrace) {
    write(1);
    files.failEvery("rename", std::errc::io_error);
    EXPECT_TRUE(write(2).error);
    EXPECT_EQ(values(), Values{1});
}

TEST_F(KeptVersions, LoseThatOfAKilledWriterWithItsTemporary) {
    write(1);
    // The killed process: a temporary with a second name in the folder, and no lock.
    platform::FileHandle file = platform::noFile;
    const std::string temporary = "/d/.a.plist.0123456789abcdef.wardlock-new";
    ASSERT_FALSE(memory.create(temporary, 0600, file));
    std::size_t written = 0;
    ASSERT_FALSE(memory.write(file, bytesOf(99), written));
    const platform::Version never = {
        .number = 2, .time = now, .origin = {"settings", 5}, .digest = platform::versionDigest(bytesOf(99))};
    ASSERT_FALSE(folder().add(temporary, never));
    memory.endProcess();

    meet();
    EXPECT_EQ(values(), Values{1}) << "it was never the document";
    EXPECT_FALSE(memory.statusOf(temporary));
}

TEST_F(KeptVersions, ContainADocumentThatIsAnEarlierVersionAgain) {
    writeMany(1, 2);
    // A writer that raced with the one of 2 and won.
    const auto kept = versions();
    ASSERT_FALSE(memory.remove(document));
    ASSERT_FALSE(memory.link(std::string(history) + '/' + kept[0].name(), document));
    write(3);
    EXPECT_EQ(values(), (Values{1, 2, 1, 3}));
    EXPECT_EQ(versions()[2].origin, platform::VersionOrigin{"settings"})
        << "its process changed nothing more";
}

TEST_F(KeptVersions, IncludeTheRestoringOfAMissingOrDamagedDocument) {
    write(1);
    ASSERT_FALSE(memory.remove(document));
    write(1, {KeepVersions::Always, platform::VersionAction::Restore, 1});
    EXPECT_EQ(values(), (Values{1, 1}));
    replaceAsAnotherProgram("damage");
    write(1, {KeepVersions::Always, platform::VersionAction::Restore, 1});
    EXPECT_EQ(values(), (Values{1, 1, 1}));
    EXPECT_EQ(versions()[2].origin.action, platform::VersionAction::Restore);
}

TEST_F(KeptVersions, IncludeADocumentThatIsReplacedByAWholeFile) {
    write(1);
    ASSERT_FALSE(platform::replaceFileOfMachine(document, bytesOf(2)));
    EXPECT_EQ(values(), (Values{1, 2}));
    EXPECT_EQ(memory.contents(document), bytesOf(2));
    ASSERT_FALSE(platform::replaceFileOfMachine("/d/b.plist", bytesOf(2)));
    EXPECT_FALSE(memory.statusOf("/d/b.plist.history"));
}

/// A process that removes leftovers may have found the withdrawn name, and be about to remove it.
TEST_F(KeptVersions, GetAnotherNameAtTheSecondAttempt) {
    const std::string temporary = "/d/.a.plist.0123456789abcdef.wardlock-new";
    memory.addFile(temporary, bytesOf(1), 0600, parent, parent);
    platform::VersionKeeper keeper(memory, {}, std::nullopt, bytesOf(1));
    keeper.willReplace({document, std::nullopt, temporary});
    const auto first = versions();
    ASSERT_EQ(first.size(), 1u);
    keeper.didNotReplace();
    EXPECT_TRUE(versions().empty());
    keeper.willReplace({document, std::nullopt, temporary});
    const auto second = versions();
    ASSERT_EQ(second.size(), 1u);
    EXPECT_EQ(second[0].number, first[0].number);
    EXPECT_NE(second[0].name(), first[0].name());
}

} // namespace
} // namespace wardlock::test
