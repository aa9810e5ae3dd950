#include "tests/support/TerminalProcess.h"
#include "tests/unit/cli/FullScreenFixture.h"
#include "tests/unit/cli/LineModeFixture.h"

#include <string>

namespace wardlock::test {
namespace {

constexpr const char* damagedDocument = "no document";

/// Taking changes back on the whole screen.
class UndoInTerminal : public FullScreenFixture {
protected:
    static void deleteAccount(ScreenProcess& screen, const std::string& name) {
        tap(screen, name);
        screen.waitFor("‹ Wardlock");
        screen.type(std::string(end) + "\r");
        screen.waitFor("Are you sure");
        screen.type("\t\r");
    }
    void damage() {
        removeFile(documentPath);
        writeFile(documentPath, damagedDocument);
    }
};

/// Taking changes back line by line.
class UndoInLineMode : public LineModeFixture {};

TEST_F(UndoInTerminal, TakesATapBackByUAndMakesItAgainByCtrlR) {
    const auto screen = open();
    screen->type(" ");
    screen->waitFor("off ○──");
    screen->type("u");
    screen->waitFor("on ━━●");
    screen->waitFor("Your last change was taken back.");
    EXPECT_TRUE(documentHolds("<key>kEnabled</key>\n\t<true/>"));
    screen->type("\x12");
    screen->waitFor("off ○──");
    screen->waitFor("The change was made again.");
    EXPECT_TRUE(documentHolds("<key>kEnabled</key>\n\t<false/>"));
}

TEST_F(UndoInTerminal, GivesTheReasonWhereThereIsNothingToTakeBack) {
    const auto screen = open();
    screen->type("u");
    screen->waitFor("Not possible: there is nothing to undo.");
}

TEST_F(UndoInTerminal, FollowsToTheRowOfTheChange) {
    const auto screen = open();
    tap(*screen, "Default");
    screen->waitFor("‹ Wardlock");
    tap(*screen, "Video");
    screen->waitForLine(23, "  Find: Video" + std::string(60, ' ') + "1 row");
    screen->type(escape);
    screen->waitUntilGone("Find:");
    screen->type(escape);
    screen->waitFor("Change Log");
    screen->type("u");
    screen->waitFor("‹ Wardlock");
    screen->waitForBackground("Video", "index 25");
}

TEST_F(UndoInTerminal, OffersToReturnADeletedAccountByU) {
    writeAccounts({"Ann", "Tom"});
    const auto screen = open();
    deleteAccount(*screen, "Ann");
    screen->waitFor("Ann was deleted; u takes that back.");
    EXPECT_FALSE(documentHolds("<string>Ann</string>"));
    screen->type("u");
    screen->waitUntilGone("was deleted");
    EXPECT_TRUE(documentHolds("<string>Ann</string>"));
    screen->waitForBackground("Ann", "index 25");
}

TEST_F(UndoInTerminal, GivesTheReasonWhereAnotherProcessesChangeWouldBeLost) {
    writeAccounts({"Ann"});
    const auto screen = open();
    tap(*screen, "Ann");
    screen->waitFor("‹ Wardlock");
    tap(*screen, "Account Name");
    screen->type("a\r");
    screen->waitFor("Anna");
    ASSERT_EQ(wardlockCommand({"account", "rename", "Anna", "Annabel"}).exitCode, 0);
    screen->waitFor("Annabel");
    screen->type("u");
    screen->waitFor("Cannot undo: Ann: Account Name was changed again.");
    EXPECT_TRUE(documentHolds("<string>Annabel</string>"));
}

TEST_F(UndoInTerminal, TypesAUIntoAField) {
    writeAccounts({"Ann"});
    const auto screen = open();
    tap(*screen, "Ann");
    screen->waitFor("‹ Wardlock");
    tap(*screen, "Account Name");
    screen->type("u\r");
    screen->waitFor("Annu");
    EXPECT_TRUE(documentHolds("<string>Annu</string>"));
}

TEST_F(UndoInTerminal, NamesItsKeysInTheHelp) {
    const auto screen = open();
    screen->type("?");
    screen->waitFor("take the last change back");
    screen->waitFor("Ctrl+R");
}

TEST_F(UndoInTerminal, RestoresDamagedSettingsByShiftR) {
    ASSERT_EQ(wardlockCommand({"account", "add", "Ann"}).exitCode, 0);
    const std::string good = readFile(documentPath);
    damage();
    const auto screen = open();
    screen->waitFor("The settings are damaged. Their last good version can be restored.");
    screen->waitFor("R restores it, Esc does not.");
    EXPECT_EQ(readFile(documentPath), damagedDocument);
    screen->type("R");
    screen->waitUntilGone("damaged");
    screen->waitFor("Ann");
    EXPECT_EQ(readFile(documentPath), good);
}

TEST_F(UndoInTerminal, LeavesDamagedSettingsAloneAfterEscape) {
    ASSERT_EQ(wardlockCommand({"account", "add", "Ann"}).exitCode, 0);
    damage();
    const auto screen = open();
    screen->waitFor("R restores it");
    screen->type(escape);
    screen->waitUntilGone("damaged");
    screen->waitFor("‹ Settings");
    EXPECT_EQ(readFile(documentPath), damagedDocument);
}

TEST_F(UndoInLineMode, HasCommandsForBothDirections) {
    writeFile(documentPath, accountsDocument({"Ann", "Tom"}));
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    terminal.type("1\n");
    EXPECT_NE(terminal.waitFor(question).find("off"), std::string::npos);
    terminal.type("u\n");
    EXPECT_NE(terminal.waitFor(question).find("on"), std::string::npos);
    EXPECT_NE(readFile(documentPath).find("<key>kEnabled</key>\n\t<true/>"), std::string::npos);
    terminal.type("r\n");
    terminal.waitFor(question);
    EXPECT_NE(readFile(documentPath).find("<key>kEnabled</key>\n\t<false/>"), std::string::npos);
    terminal.type("Ann\n");
    terminal.waitFor(question);
    terminal.type("Delete Account\n");
    terminal.waitFor("Are you sure");
    terminal.waitFor("Number: ");
    terminal.type("2\n");
    terminal.waitFor("Ann was deleted; u takes that back.");
    terminal.waitFor(question);
    terminal.type("u\n");
    EXPECT_NE(terminal.waitFor(question).find("Ann"), std::string::npos);
    EXPECT_NE(readFile(documentPath).find("<string>Ann</string>"), std::string::npos);
}

TEST_F(UndoInLineMode, RestoresDamagedSettingsByR) {
    ASSERT_EQ(wardlockCommand({"account", "add", "Ann"}).exitCode, 0);
    const std::string good = readFile(documentPath);
    removeFile(documentPath);
    writeFile(documentPath, damagedDocument);
    TerminalProcess terminal(command, words());
    terminal.waitFor("The settings are damaged. Their last good version can be restored.");
    terminal.waitFor("R restores it.");
    terminal.waitFor(question);
    terminal.type("R\n");
    EXPECT_NE(terminal.waitFor(question).find("Ann"), std::string::npos);
    EXPECT_EQ(readFile(documentPath), good);
}

} // namespace
} // namespace wardlock::test
