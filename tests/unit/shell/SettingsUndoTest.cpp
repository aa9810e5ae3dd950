#include "platform/files/DeviceRoot.h"
#include "settings/history/Undo.h"
#include "tests/support/doubles/FaultyFileSystem.h"
#include "tests/unit/shell/UndoFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

class SettingsUndo : public UndoFixture {};

TEST_F(SettingsUndo, TakesTheLastChangeBackAndMakesItAgain) {
    startWith({"Ann", "Tom"});
    const std::string before = readFile(documentPath);
    openAccount("Tom");
    tap("Siri");
    const std::string after = readFile(documentPath);
    ASSERT_NE(before, after);
    undo();
    EXPECT_EQ(readFile(documentPath), before);
    EXPECT_FALSE(row("Siri").isOn());
    redo();
    EXPECT_EQ(readFile(documentPath), after);
    EXPECT_TRUE(row("Siri").isOn());
}

TEST_F(SettingsUndo, IsRefusedWhereNothingWasChanged) {
    startWith({"Ann"});
    EXPECT_EQ(settings().history().undo().reason(), "there is nothing to undo");
    EXPECT_EQ(settings().history().redo().reason(), "there is nothing to redo");
    EXPECT_EQ(notice(), "");
}

TEST_F(SettingsUndo, LeavesTheChangesOfOthersAlone) {
    startWith({"Ann"});
    openAccount("Ann");
    replaceElsewhere(withAccountValue(0, kRestrictVideo, true));
    EXPECT_EQ(settings().history().undo().reason(), "there is nothing to undo");
    tap("Siri");
    replaceElsewhere(withAccountValue(0, kRestrictCamera, true));
    undo();
    EXPECT_FALSE(isOn(0, kRestrictSiri));
    EXPECT_TRUE(isOn(0, kRestrictVideo));
    EXPECT_TRUE(isOn(0, kRestrictCamera));
    EXPECT_FALSE(row("Siri").isOn());
}

TEST_F(SettingsUndo, GivesTheReasonWhereALaterChangeWouldBeLost) {
    startWith({"Ann"});
    openAccount("Ann");
    type("Account Name", "Anna");
    back();
    replaceElsewhere(withAccountValue(0, kAccountName, "Annabel"));
    announced.clear();
    const std::string before = readFile(documentPath);
    EXPECT_EQ(settings().history().undo().reason(),
              "a later change would be lost: Ann: Account Name was changed again");
    EXPECT_EQ(notice(), "Cannot undo: Ann: Account Name was changed again.");
    EXPECT_EQ(readFile(documentPath), before);
    EXPECT_EQ(announced, Names());
}

TEST_F(SettingsUndo, AnnouncesEachKeyAsItsPageDoes) {
    startWith({"Ann", "Tom"});
    openAccount("Ann");
    tap("Enabled");
    back();
    tap("Tom");
    tap("Enabled");
    announced.clear();
    center.posts.clear();
    undo();
    EXPECT_TRUE(isOn(0, kAccountEnabled));
    EXPECT_FALSE(isOn(1, kAccountEnabled));
    EXPECT_EQ(announced, Names{"kAccountEnabled"});
    ASSERT_EQ(center.posts.size(), 1U);
    EXPECT_EQ(center.posts[0].userInfo, (platform::Dictionary{{"key", "kAccountEnabled"}, {"object", true}}));
}

TEST_F(SettingsUndo, StoresTheTypedTextFirstAndTakesItBack) {
    startWith({"Ann"});
    openAccount("Ann");
    type("Account Name", "Anna");
    undo();
    EXPECT_FALSE(page().edit());
    EXPECT_EQ(names(), Names{"Ann"});
    redo();
    EXPECT_EQ(names(), Names{"Anna"});
    EXPECT_EQ(page().title(), "Anna");
}

TEST_F(SettingsUndo, IsRefusedWhileSomethingCoversThePage) {
    startWith({"Ann"});
    tap("Wardlock");
    tap("Enabled");
    tap("Passcode");
    EXPECT_EQ(settings().history().undo().reason(), "the keypad covers the page");
    ASSERT_TRUE(settings().sheets().cancelKeypad());
    clock.step(1);
    EXPECT_TRUE(settings().page().tapBarButton());
    EXPECT_EQ(settings().history().undo().reason(), "an alert covers the page");
    chooseInAlert("Cancel");
    undo();
    EXPECT_TRUE(row("Enabled").isOn());
}

TEST_F(SettingsUndo, IsForgottenByTheNextChange) {
    startWith({"Ann"});
    openAccount("Ann");
    tap("Siri");
    undo();
    tap("Video");
    EXPECT_EQ(settings().history().redo().reason(), "there is nothing to redo");
}

TEST_F(SettingsUndo, IsRefusedWhereTheSettingsHaveDisappeared) {
    startWith({"Ann"});
    tap("Wardlock");
    tap("Enabled");
    removeFile(documentPath);
    EXPECT_EQ(settings().history().undo().reason(), "the settings are missing or damaged");
    EXPECT_EQ(notice(), "Cannot undo: the settings are missing or damaged.");
    EXPECT_FALSE(exists(documentPath));
}

TEST_F(SettingsUndo, ReportsThatItCouldNotBeStored) {
    FaultyFileSystem files(platform::FileSystem::current());
    platform::FileSystem::setCurrent(&files);
    startWith({"Ann"});
    openAccount("Ann");
    tap("Siri");
    announced.clear();
    files.fillDiskFrom(files.calls() + 1);
    EXPECT_EQ(settings().history().undo().reason(), "the settings could not be saved");
    EXPECT_EQ(notice(), "Your change could not be saved: no space left on device.");
    EXPECT_EQ(announced, Names());
    EXPECT_TRUE(row("Siri").isOn());
    files.fillDiskFrom(std::size_t(-1));
    undo();
    EXPECT_FALSE(row("Siri").isOn());
    quit();
    platform::FileSystem::setCurrent(nullptr);
}

TEST_F(SettingsUndo, GivesTheReasonWhereNoVersionsAreKept) {
    const std::string folder = std::string(documentPath) + ".history";
    writeFile(folder, "");
    startWith({"Ann"});
    openAccount("Ann");
    tap("Siri");
    EXPECT_FALSE(settings().history().undo());
    EXPECT_EQ(notice(),
              "Changes cannot be taken back: " + onDisk(folder) + " is a link or a file, not a folder.");
    EXPECT_TRUE(isOn(0, kRestrictSiri));
}

TEST_F(SettingsUndo, IsRefusedForASetPasscode) {
    startWith({"Ann"});
    tap("Wardlock");
    tap("Passcode");
    press("1234");
    clock.step(1);
    const std::string before = readFile(documentPath);
    EXPECT_EQ(settings().history().undo().reason(), "the passcode is changed on its own row");
    EXPECT_EQ(notice(), "Cannot undo: the passcode is changed on its own row.");
    EXPECT_EQ(readFile(documentPath), before);
    tap("Passcode");
    EXPECT_EQ(settings().screen().overlay()->keypad->shownText(), "Enter Current Passcode");
}

TEST_F(SettingsUndo, IsRefusedForASetPasscodeThatWasTakenBackElsewhere) {
    startWith({"Ann"});
    tap("Wardlock");
    tap("Passcode");
    press("1234");
    clock.step(1);
    // The command takes changes of all processes back; here it is this one.
    ASSERT_EQ(wardlock::undo(Whose::Anyones).outcome, UndoResult::Outcome::Done);
    platform::MutableDictionary other(document());
    other.set(kPasscode, "5678");
    replaceElsewhere(other.copy());
    const std::string before = readFile(documentPath);
    EXPECT_EQ(settings().history().redo().reason(), "the passcode is changed on its own row");
    EXPECT_EQ(notice(), "Cannot redo: the passcode is changed on its own row.");
    EXPECT_EQ(readFile(documentPath), before);
}

TEST_F(SettingsUndo, MakesAPasscodeAgainWhileNoneIsSet) {
    startWith({"Ann"});
    tap("Wardlock");
    tap("Passcode");
    press("1234");
    clock.step(1);
    ASSERT_EQ(wardlock::undo(Whose::Anyones).outcome, UndoResult::Outcome::Done);
    redo();
    EXPECT_EQ(document().find(kPasscode)->string(), "1234");
}

TEST_F(SettingsUndo, IsRefusedWhereAnotherAccountWasEnabledLater) {
    writeDocument(documentOf({"Ann", "Tom"}));
    writeDocument(withAccountValue(0, kAccountEnabled, true));
    start();
    observe();
    openAccount("Ann");
    tap("Enabled");
    replaceElsewhere(withAccountValue(1, kAccountEnabled, true));
    EXPECT_EQ(settings().history().undo().reason(), "a later change would be lost: Tom was enabled since");
    EXPECT_FALSE(isOn(0, kAccountEnabled));
    EXPECT_TRUE(isOn(1, kAccountEnabled));
}

TEST_F(SettingsUndo, ReturnsADeletedAccountToItsPlace) {
    startWith({"Ann", "Tom", "Eva"});
    const std::string before = readFile(documentPath);
    tap("Wardlock");
    deleteAccount("Ann");
    tap("Eva");
    undo();
    EXPECT_EQ(readFile(documentPath), before);
    EXPECT_EQ(pages(), (Names{"Settings", "Wardlock"}));
    EXPECT_EQ(found, Names{"Wardlock: Ann"});
    EXPECT_EQ(notice(), "");
    tap("Eva");
    EXPECT_EQ(page().title(), "Eva");
    tap("Siri");
    EXPECT_TRUE(isOn(2, kRestrictSiri));
}

TEST_F(SettingsUndo, RemovesAnAddedAccountWhosePageIsOpen) {
    startWith({"Ann"});
    tap("Wardlock");
    createAccount("Tom");
    tap("Tom");
    undo();
    EXPECT_EQ(names(), Names{"Ann"});
    EXPECT_EQ(pages(), (Names{"Settings", "Wardlock"}));
    EXPECT_FALSE(hasRow("Tom"));
    EXPECT_EQ(notice(), "");
    EXPECT_EQ(offer(), "");
    redo();
    EXPECT_EQ(found, Names{"Wardlock: Tom"});
}

} // namespace
} // namespace wardlock::test
