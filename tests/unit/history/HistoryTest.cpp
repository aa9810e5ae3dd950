#include "settings/history/History.h"

#include "platform/plist/PropertyList.h"
#include "tests/unit/history/HistoryFixture.h"

#include <filesystem>

namespace wardlock::test {
namespace {

using platform::Dictionary;
using Texts = std::vector<std::string>;

class HistoryOfTheDocument : public HistoryFixture {
protected:
    HistoryOfTheDocument() { writeDocument(documentOf({account("Tom")})); }
    static std::vector<Texts> allChanges(const History& history) {
        std::vector<Texts> all;
        for (const auto& version : history.versions()) {
            const auto changes = history.changes(version);
            all.push_back(changes ? changeTexts(*changes) : Texts{"unknown"});
        }
        return all;
    }
};

TEST_F(HistoryOfTheDocument, BeginsWithTheDocumentThatIsThere) {
    const History history;
    ASSERT_EQ(history.versions().size(), 1u);
    EXPECT_EQ(history.versions()[0].origin.place, platform::unknownPlace);
    EXPECT_EQ(history.document(history.versions()[0]), documentOf({account("Tom")}));
    EXPECT_EQ(allChanges(history), std::vector<Texts>{{"unknown"}});
}

TEST_F(HistoryOfTheDocument, HasNothingBeforeAVersionThatIsNotKept) {
    setAccount(0, kRestrictSiri, true);
    const History history;
    ASSERT_EQ(history.versions().size(), 2u);
    EXPECT_EQ(history.previous(history.versions()[1]), &history.versions()[0]);
    platform::Version gone = history.versions()[1];
    gone.number = 99;
    EXPECT_EQ(history.previous(gone), nullptr);
    EXPECT_EQ(history.changes(gone), std::nullopt);
}

TEST_F(HistoryOfTheDocument, HasEachChange) {
    setAccount(0, kRestrictSiri, true);
    setTopLevel(kPasscode, "1234");
    EXPECT_EQ(allChanges(History()), (std::vector<Texts>{{"unknown"}, {"Tom: Siri on"}, {"passcode set"}}));
}

TEST_F(HistoryOfTheDocument, IncludesWhatAnotherProgramWroteOverIt) {
    setAccount(0, kRestrictSiri, true);
    replaceAsAnotherProgram(documentOf({account("Ann")}));
    const History history;
    ASSERT_EQ(history.versions().size(), 3u);
    EXPECT_EQ(history.document(history.versions()[1]), documentOf({account("Tom", kRestrictSiri, true)}));
    EXPECT_EQ(history.document(history.versions()[2]), documentOf({account("Ann")}));
}

TEST_F(HistoryOfTheDocument, ComparesEachVersionWithTheReadableOneBeforeIt) {
    setAccount(0, kRestrictSiri, true);
    setAccount(0, kRestrictCamera, true);
    const History history;
    std::filesystem::remove(history.folder().path() + '/' + history.versions()[1].name());
    EXPECT_EQ(allChanges(history),
              (std::vector<Texts>{{"unknown"}, {"unknown"}, {"Tom: Camera on", "Tom: Siri on"}}));
}

TEST_F(HistoryOfTheDocument, IsReadFromNoFolderThatIsNotThisUsersAlone) {
    setAccount(0, kRestrictSiri, true);
    const std::string folder = History().folder().path();
    std::filesystem::permissions(folder, std::filesystem::perms(0755));
    EXPECT_TRUE(History().versions().empty());
    EXPECT_EQ(History().folder().state(), platform::VersionFolder::State::OpenToOthers);
    std::filesystem::permissions(folder, std::filesystem::perms(0700));
    std::filesystem::rename(folder, folder + ".moved");
    std::filesystem::create_directory_symlink(folder + ".moved", folder);
    EXPECT_TRUE(History().versions().empty());
}

TEST_F(HistoryOfTheDocument, FindsVersionsByTheirNumbers) {
    setAccount(0, kRestrictSiri, true);
    const History history;
    EXPECT_EQ(history.find(2), &history.versions()[1]);
    EXPECT_EQ(history.find(3), nullptr);
    EXPECT_EQ(history.lastReadable(), &history.versions()[1]);
}

TEST_F(HistoryOfTheDocument, HasTheLastGoodVersionOfADamagedDocument) {
    setAccount(0, kRestrictSiri, true);
    removeFile(documentPath);
    writeFile(documentPath, "damage");
    const History history;
    EXPECT_EQ(history.document(*history.lastReadable()), documentOf({account("Tom", kRestrictSiri, true)}));
    EXPECT_EQ(restoreVersion(history.lastReadable()->number).outcome, UndoResult::Outcome::Done);
    EXPECT_EQ(readDocument(), documentOf({account("Tom", kRestrictSiri, true)}));
    EXPECT_EQ(readFile(std::string(documentPath) + ".damaged"), "damage");
}

TEST_F(HistoryOfTheDocument, PassesOverAVersionThatWasDamagedInPlace) {
    setAccount(0, kRestrictSiri, true);
    // The youngest version is the document's own file.
    writeFile(documentPath, "damage");
    const History history;
    EXPECT_EQ(history.document(*history.lastReadable()), documentOf({account("Tom")}));
    EXPECT_EQ(restoreVersion(history.lastReadable()->number).outcome, UndoResult::Outcome::Done);
    EXPECT_EQ(readDocument(), documentOf({account("Tom")}));
}

TEST_F(HistoryOfTheDocument, HasNothingToReadOfAVersionThatWasChangedInPlace) {
    setAccount(0, kRestrictSiri, true);
    const std::uint64_t number = History().versions().back().number;
    // A document again, though another one: the version is the same file.
    writeFile(documentPath, platform::dataWithPropertyList(documentOf({account("Eve")})));
    const History history;
    ASSERT_TRUE(history.find(number));
    EXPECT_FALSE(history.document(*history.find(number)));
}

} // namespace
} // namespace wardlock::test
