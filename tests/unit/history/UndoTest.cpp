#include "settings/history/Undo.h"

#include "platform/plist/PropertyList.h"
#include "tests/unit/history/HistoryFixture.h"

#include <filesystem>

namespace wardlock::test {
namespace {

using platform::Dictionary;
using platform::Value;
using Outcome = UndoResult::Outcome;
using Texts = std::vector<std::string>;

class Undo : public HistoryFixture {
protected:
    Undo() {
        writeDocument(documentOf({account("Tom"), account("Ann")}));
        setTopLevel(kEnabled, false);
        announced();
    }
    Dictionary record(std::size_t index) const { return *Accounts::onDisk().record(index); }
};

TEST_F(Undo, TakesTheLastChangeBackByteForByte) {
    const std::string before = readFile(documentPath);
    setAccount(1, kRestrictSiri, true);
    EXPECT_EQ(undo(Whose::Anyones).outcome, Outcome::Done);
    EXPECT_EQ(readFile(documentPath), before);
}

TEST_F(Undo, IsTakenBackByRedo) {
    setAccount(1, kRestrictSiri, true);
    const std::string after = readFile(documentPath);
    undo(Whose::Anyones);
    EXPECT_EQ(redo(Whose::Anyones).outcome, Outcome::Done);
    EXPECT_EQ(readFile(documentPath), after);
    EXPECT_EQ(redo(Whose::Anyones).outcome, Outcome::Nothing);
    EXPECT_EQ(undo(Whose::Anyones).outcome, Outcome::Done);
    EXPECT_NE(readFile(documentPath), after);
}

TEST_F(Undo, GoesBackOneChangeAtATime) {
    std::vector<std::string> states = {readFile(documentPath)};
    for (const char* name : {"a", "b", "c"}) {
        addAccount(name);
        states.push_back(readFile(documentPath));
    }
    for (std::size_t i = 3; i-- > 0;) {
        EXPECT_EQ(undo(Whose::Anyones).outcome, Outcome::Done);
        EXPECT_EQ(readFile(documentPath), states[i]);
    }
    for (std::size_t i = 1; i <= 3; ++i) {
        EXPECT_EQ(redo(Whose::Anyones).outcome, Outcome::Done);
        EXPECT_EQ(readFile(documentPath), states[i]);
    }
}

TEST_F(Undo, EndsAtTheOldestVersion) {
    EXPECT_EQ(undo(Whose::Anyones).outcome, Outcome::Done);
    EXPECT_EQ(undo(Whose::Anyones).outcome, Outcome::Nothing);
    EXPECT_EQ(undoStep(Whose::Anyones), std::nullopt);
}

TEST_F(Undo, LeavesNothingToRedoAfterAnotherChange) {
    addAccount("a");
    undo(Whose::Anyones);
    setAccount(0, kRestrictSiri, true);
    EXPECT_EQ(redo(Whose::Anyones).outcome, Outcome::Nothing);
}

TEST_F(Undo, IsDescribedBeforeItIsDone) {
    deleteAccount(1);
    const auto step = undoStep(Whose::Anyones);
    ASSERT_TRUE(step);
    EXPECT_EQ(changeTexts(step->changes), Texts{"Ann deleted"});
    EXPECT_EQ(redoStep(Whose::Anyones), std::nullopt);
    const UndoResult result = undo(Whose::Anyones);
    EXPECT_EQ(result.number, step->number);
    EXPECT_EQ(changeTexts(result.changes), Texts{"Ann added"});
    EXPECT_EQ(changeTexts(redoStep(Whose::Anyones)->changes), Texts{"Ann deleted"});
}

TEST_F(Undo, AnnouncesEachKeyAsItsWriterDoes) {
    setAccount(1, kRestrictSiri, true);
    undo(Whose::Anyones);
    EXPECT_EQ(announced(), Texts{"kRestrictSiri=false"});
    redo(Whose::Anyones);
    EXPECT_EQ(announced(), Texts{"kRestrictSiri=true"});

    setTopLevel(kPasscode, "1234");
    undo(Whose::Anyones);
    EXPECT_EQ(announced(), Texts{"kPasscode="});

    deleteAccount(0);
    undo(Whose::Anyones);
    EXPECT_EQ(announced(), Texts{"kAccounts=account Tom"});
    redo(Whose::Anyones);
    EXPECT_EQ(announced(), Texts{"kAccounts=list of 1"});
}

TEST_F(Undo, AnnouncesTheEnablingAloneWhereAnotherAccountIsDisabled) {
    setAccount(0, kAccountEnabled, true);
    changeAccounts([](Accounts& accounts) {
        const Value on(true);
        const Value off(false);
        accounts.set(0, kAccountEnabled, &off);
        accounts.set(1, kAccountEnabled, &on);
    });
    undo(Whose::Anyones);
    EXPECT_EQ(announced(), Texts{"kAccountEnabled=true"});
    undo(Whose::Anyones);
    EXPECT_EQ(announced(), Texts{"kAccountEnabled=false"});
}

TEST_F(Undo, NotifiesWithoutAValueOfAKeyThatIsRemoved) {
    setTopLevel("kOther", 1);
    undo(Whose::Anyones);
    EXPECT_EQ(announced(), Texts{"reload"});
}

TEST_F(Undo, AnnouncesAfterTheDocumentIsWritten) {
    setAccount(1, kRestrictSiri, true);
    bool written = false;
    center.onPost = [&](const auto&) { written = !platform::boolValue(record(1).find(kRestrictSiri)); };
    undo(Whose::Anyones);
    EXPECT_TRUE(written);
}

TEST_F(Undo, TakesAnotherProgramsChangeBackOnlyWhenAnyonesIsMeant) {
    setAccount(0, kRestrictSiri, true);
    platform::MutableDictionary changed(readDocument());
    changed.set(kPasscode, "1234");
    replaceAsAnotherProgram(changed.copy());
    EXPECT_EQ(changeTexts(undoStep(Whose::Anyones)->changes), Texts{"passcode set"});
    EXPECT_EQ(changeTexts(undoStep(Whose::Own)->changes), Texts{"Tom: Siri on"});
    EXPECT_EQ(undo(Whose::Own).outcome, Outcome::Done);
    EXPECT_EQ(*readDocument().find(kPasscode), Value("1234"));
    EXPECT_FALSE(platform::boolValue(record(0).find(kRestrictSiri)));
}

TEST_F(Undo, IsRefusedWhereALaterChangeWouldBeLost) {
    setTopLevel(kPasscode, "1111");
    platform::MutableDictionary changed(readDocument());
    changed.set(kPasscode, "2222");
    replaceAsAnotherProgram(changed.copy());
    announced();
    const UndoResult refused = undo(Whose::Own);
    EXPECT_EQ(refused.outcome, Outcome::Refused);
    EXPECT_EQ(refused.reasons, Texts{"the passcode was changed again"});
    EXPECT_EQ(*readDocument().find(kPasscode), Value("2222"));
    EXPECT_TRUE(announced().empty());
    EXPECT_EQ(undo(Whose::Own, LaterChanges::Overwrite).outcome, Outcome::Done);
    EXPECT_EQ(*readDocument().find(kPasscode), Value(""));
}

TEST_F(Undo, PassesOverAChangeThatOthersTookBack) {
    setAccount(0, kRestrictSiri, true);
    setAccount(1, kRestrictCamera, true);
    platform::MutableDictionary changed(readDocument());
    changed.set(kAccounts, platform::Array{account("Tom", kRestrictSiri, true), account("Ann")});
    replaceAsAnotherProgram(changed.copy());
    EXPECT_EQ(changeTexts(undoStep(Whose::Own)->changes), Texts{"Tom: Siri on"});
}

TEST_F(Undo, RecordsWhatItTookBack) {
    setAccount(1, kRestrictSiri, true);
    undo(Whose::Anyones);
    const History history;
    const platform::Version& last = history.versions().back();
    EXPECT_EQ(last.origin.action, platform::VersionAction::Undo);
    EXPECT_EQ(last.origin.of, last.number - 1);
}

TEST_F(Undo, ReportsADocumentThatCannotBeWritten) {
    setAccount(1, kRestrictSiri, true);
    FaultyFileSystem faulty(platform::FileSystem::current());
    faulty.failEvery("rename", std::errc::read_only_file_system);
    platform::FileSystem::setCurrent(&faulty);
    announced();
    const UndoResult result = undo(Whose::Anyones);
    EXPECT_EQ(result.outcome, Outcome::Failed);
    EXPECT_EQ(result.error, std::errc::read_only_file_system);
    EXPECT_TRUE(announced().empty());
}

TEST_F(Undo, HasNothingToTakeBackWithoutADocument) {
    removeFile(documentPath);
    std::filesystem::remove_all(onDisk(documentPath) + ".history");
    EXPECT_EQ(undo(Whose::Anyones).outcome, Outcome::Nothing);
    EXPECT_FALSE(exists(documentPath));
}

TEST_F(Undo, PrintsTheDeletionOfTheLastAccountBackwards) {
    deleteAccount(0);
    deleteAccount(0);
    EXPECT_EQ(changeTexts(undoStep(Whose::Anyones)->changes), (Texts{"Ann deleted", "Default added"}));
    EXPECT_EQ(changeTexts(undo(Whose::Anyones).changes), (Texts{"Default deleted", "Ann added"}));
    const History history;
    EXPECT_EQ(changeTexts(*history.changes(history.versions().back())),
              (Texts{"Default deleted", "Ann added"}));
    EXPECT_EQ(changeTexts(redo(Whose::Anyones).changes), (Texts{"Ann deleted", "Default added"}));
}

TEST_F(Undo, PrintsTheRenamingOfTheDefaultAccountBackwards) {
    changeAccounts([](Accounts& accounts) { accounts = Accounts::defaults(); });
    setAccount(0, kAccountName, "Ann");
    EXPECT_EQ(changeTexts(undo(Whose::Anyones).changes), Texts{"Ann renamed to Default"});
}

TEST_F(Undo, TakesTheVersionOfItsOwnProcessWhereAnotherHasItsNumber) {
    setAccount(0, kRestrictSiri, true);
    // A writer that raced with this one: its version has the same number.
    const platform::Version own = History().versions().back();
    platform::MutableDictionary other(readDocument());
    other.set("kOther", 1);
    const std::string bytes = platform::dataWithPropertyList(other.copy());
    platform::Version raced = own;
    raced.time += 1;
    raced.origin.process = own.origin.process + 1;
    raced.digest = platform::versionDigest(bytes);
    writeFile(std::string(documentPath) + ".history/" + raced.name(), bytes);
    setAccount(1, kRestrictCamera, true);

    EXPECT_EQ(changeTexts(undoStep(Whose::Own)->changes).back(), "Ann: Camera on");
    EXPECT_EQ(undo(Whose::Own).outcome, Outcome::Done);
    EXPECT_EQ(undo(Whose::Own).number, own.number);
    EXPECT_FALSE(platform::boolValue(record(0).find(kRestrictSiri)));
    const auto next = undoStep(Whose::Anyones);
    ASSERT_TRUE(next);
    EXPECT_NE(changeTexts(next->changes), Texts{"Tom: Siri on"});
    announced();
    EXPECT_EQ(restoreVersion(raced).outcome, Outcome::Done);
    EXPECT_EQ(readFile(documentPath), bytes);
}

class Restoring : public Undo {};

TEST_F(Restoring, IsAChangeWhereTheSettingsWereMissing) {
    const platform::Version last = History().versions().back();
    const std::string wanted = readFile(documentPath);
    removeFile(documentPath);
    EXPECT_EQ(restoreVersion(last).outcome, Outcome::Done);
    EXPECT_EQ(readFile(documentPath), wanted);
    EXPECT_EQ(History().versions().back().origin.action, platform::VersionAction::Restore);
    EXPECT_EQ(History().versions().back().number, last.number + 1);
    EXPECT_EQ(undo(Whose::Anyones).outcome, Outcome::Nothing) << "there were none to return to";
    EXPECT_EQ(readFile(documentPath), wanted);
    setAccount(0, kRestrictSiri, true);
    EXPECT_EQ(undo(Whose::Anyones).outcome, Outcome::Done);
    EXPECT_EQ(readFile(documentPath), wanted);
}

TEST_F(Restoring, ReplacesTheDocumentByAVersionByteForByte) {
    setTopLevel(kPasscode, "1234");
    const std::string wanted = readFile(documentPath);
    const std::uint64_t number = History().versions().back().number;
    deleteAccount(0);
    addAccount("Eve");
    announced();
    const UndoResult result = restoreVersion(number);
    EXPECT_EQ(result.outcome, Outcome::Done);
    EXPECT_EQ(changeTexts(result.changes), (Texts{"Eve deleted", "Tom added"}));
    EXPECT_EQ(readFile(documentPath), wanted);
    EXPECT_EQ(announced(), (Texts{"kAccounts=list of 2", "kAccounts=account Tom"}));
}

TEST_F(Restoring, CanBeTakenBack) {
    const std::uint64_t number = History().versions().back().number;
    deleteAccount(0);
    const std::string before = readFile(documentPath);
    restoreVersion(number);
    EXPECT_EQ(undo(Whose::Anyones).outcome, Outcome::Done);
    EXPECT_EQ(readFile(documentPath), before);
}

TEST_F(Restoring, RecordsWhatItRestored) {
    const std::uint64_t number = History().versions().back().number;
    deleteAccount(0);
    restoreVersion(number);
    const History history;
    EXPECT_EQ(history.versions().back().origin.action, platform::VersionAction::Restore);
    EXPECT_EQ(history.versions().back().origin.of, number);
}

TEST_F(Restoring, DoesNothingForAVersionThatIsNotThereOrIsTheDocument) {
    EXPECT_EQ(restoreVersion(99).outcome, Outcome::Nothing);
    EXPECT_EQ(restoreVersion(History().versions().back().number).outcome, Outcome::Nothing);
}

} // namespace
} // namespace wardlock::test
