#include "tests/support/HttpServer.h"
#include "tests/unit/cli/FullScreenFixture.h"

#include <string>

namespace wardlock::test {
namespace {

class FullScreenPage : public FullScreenFixture {};

TEST_F(FullScreenPage, FillsEightyByTwentyFourCells) {
    const auto screen = open();
    screen->waitForLine(0, "  ‹ Settings                        Wardlock                             + Add");
    std::string rule;
    for (int column = 0; column < 80; ++column)
        rule += "─";
    screen->waitForLine(1, rule);
    screen->waitForLine(2, "  General");
    screen->waitForLine(3, "  Enabled                                                              on ━━●");
    screen->waitForLine(4, "  Passcode");
    screen->waitForLine(9, "  Accounts");
    screen->waitForLine(10, "  Default                                                                   ›");
    screen->waitForLine(23, "  ↑↓ move   Space tap   Esc back   / find   + add   ? help   q quit");
    EXPECT_TRUE(screen->isSecondScreen());
    EXPECT_TRUE(screen->reportsMouse());
    EXPECT_FALSE(screen->showsCaret());
}

TEST_F(FullScreenPage, BreaksTextsAndShowsAScrollBarAtFortyByTwelve) {
    const auto screen = open({40, 12});
    screen->waitForLine(0, "  ‹ Settings    Wardlock         + Add");
    screen->waitForLine(3, "  Enabled                      on ━━●  █");
    screen->waitForLine(5, "  To set a passcode, simply tap on     │");
    screen->type(end);
    screen->waitFor("Wardlock is made by Tavix.");
    screen->waitForLine(10, "  Wardlock is made by Tavix.           █");
    screen->waitForBackground("More From", "index 25");
}

TEST_F(FullScreenPage, KeepsToTheMiddleOfAWideTerminal) {
    const auto screen = open({200, 60});
    screen->waitForLine(3, std::string(52, ' ') + "Enabled" + std::string(82, ' ') + "on ━━●");
    EXPECT_EQ(screen->cell(3, 49).background, "default");
    EXPECT_EQ(screen->cell(3, 50).background, "index 25");
}

TEST_F(FullScreenPage, MovesTheCursorFromRowToRow) {
    const auto screen = open();
    screen->waitForBackground("Enabled", "index 25");
    screen->type("j");
    screen->waitForBackground("Passcode", "index 25");
    screen->waitForBackground("Enabled", "default");
    screen->type(down);
    screen->waitForBackground("Default", "index 25");
    screen->type(std::string(up) + "k");
    screen->waitForBackground("Enabled", "index 25");
}

TEST_F(FullScreenPage, TapsTheRowWithTheCursor) {
    const auto screen = open();
    screen->type(" ");
    screen->waitFor("off ○──");
    EXPECT_TRUE(documentHolds("<false/>"));
    screen->type("\r");
    screen->waitFor("on ━━●");
    EXPECT_TRUE(documentHolds("<key>kEnabled</key>\n\t<true/>"));
}

TEST_F(FullScreenPage, ReturnsToTheRowOfThePageThatItLeaves) {
    const auto screen = open();
    tap(*screen, "Default");
    screen->waitFor("‹ Wardlock");
    screen->type(escape);
    screen->waitFor("Change Log");
    screen->waitForBackground("Default", "index 25");
}

TEST_F(FullScreenPage, ScrollsAPageThatIsLongerThanTheScreen) {
    const auto screen = open();
    tap(*screen, "Default");
    screen->waitFor("‹ Wardlock");
    screen->waitUntilGone("Delete Account");
    screen->type(pageDown);
    screen->waitFor("Delete Account");
    screen->waitUntilGone("Disable Lockscreen Passcode");
    screen->type(pageUp);
    screen->waitFor("Disable Lockscreen Passcode");
    for (int row = 0; row < 30; ++row)
        screen->type(down);
    screen->waitFor("Delete Account");
    screen->waitForBackground("Delete Account", "index 25");
    screen->type(home);
    screen->waitFor("Disable Lockscreen Passcode");
    screen->waitForBackground("Enabled", "index 25");
}

TEST_F(FullScreenPage, ShowsTenThousandRowsOfATable) {
    installFixtureBundle();
    ScreenProcess screen(command, words());
    screen.waitFor("Fixture");
    screen.type("\r");
    screen.waitFor("Flavour");
    tap(screen, "Table");
    screen.waitFor("Row 20");
    screen.waitForLine(2, "  Row 0" + std::string(63, ' ') + "off ○──  █");
    screen.type(end);
    screen.waitFor("Row 9999");
    screen.type(" ");
    screen.waitForLine(22, "  Row 9999" + std::string(61, ' ') + "on ━━●  █");
}

TEST_F(FullScreenPage, FindsRowsByWhatIsTyped) {
    const auto screen = open();
    screen->type("/PASS");
    screen->waitForLine(23, "  Find: PASS" + std::string(61, ' ') + "1 row");
    screen->waitUntilGone("Enabled");
    screen->waitForLine(2, "  General");
    screen->waitForLine(3, "  Passcode");
    screen->waitForCaret(23, 12);
    screen->type(escape);
    screen->waitFor("Enabled");
    screen->waitForBackground("Passcode", "index 25");
}

TEST_F(FullScreenPage, BeginsToFindWithALetter) {
    const auto screen = open();
    screen->type("Chan");
    screen->waitFor("Find: Chan");
    screen->type("\r");
    screen->waitFor("‹ Wardlock");
}

TEST_F(FullScreenPage, TakesAKeyThatComesTogetherWithEscape) {
    const auto screen = open();
    screen->type("/pass");
    screen->waitFor("Find: pass");
    screen->type(std::string(escape) + "+");
    screen->waitFor("New Account Name");
    screen->type("\x1B[99;99~\x1BOz\x1B[1;5Q");
    screen->type("x");
    screen->waitForBackground("x  ", "index 239");
}

TEST_F(FullScreenPage, SaysWhyAKeyHasNoEffect) {
    installFixtureBundle();
    ScreenProcess screen(command, words());
    screen.waitFor("Fixture");
    screen.type("\r");
    screen.waitFor("Flavour");
    tap(screen, "Locked");
    screen.waitFor("Not possible: the row is disabled.");
    screen.type(down);
    screen.waitUntilGone("Not possible");
}

TEST_F(FullScreenPage, MovesASliderByKeysAndByTheMouse) {
    installFixtureBundle();
    ScreenProcess screen(command, words());
    screen.waitFor("Fixture");
    screen.type("\r");
    screen.waitFor("Slider");
    screen.type(std::string(down) + down + right + right);
    screen.waitForLine(6, "  Slider" + std::string(37, ' ') + "━━●" + "─────────────────────       1");
    screen.type(left);
    screen.waitFor(" 0.5");
    screen.click(screen.lineWith("Slider"), 68);
    screen.waitFor("━━━━━━━━━━━━━━━━━━━━━━━●      10");
}

TEST_F(FullScreenPage, TakesTheMouse) {
    const auto screen = open();
    screen->click(3, 10);
    screen->waitFor("off ○──");
    screen->click(10, 40);
    screen->waitFor("‹ Wardlock");
    screen->wheel(false);
    screen->waitUntilGone("Default  ");
    screen->wheel(true);
    screen->waitFor("Restricted Apps");
    screen->click(0, 4);
    screen->waitFor("‹ Settings");
    screen->click(0, 74);
    screen->waitFor("New Account Name");
}

TEST_F(FullScreenPage, FollowsTheSizeOfTheTerminal) {
    const auto screen = open();
    screen->resize({50, 20});
    screen->waitForLine(3, "  Enabled" + std::string(32, ' ') + "on ━━●  █");
    screen->waitForLine(0, "  ‹ Settings         Wardlock              + Add");
    screen->resize({120, 30});
    screen->waitForLine(3, std::string(12, ' ') + "Enabled" + std::string(82, ' ') + "on ━━●");
    screen->resize({9, 2});
    screen->resize({80, 24});
    screen->waitFor("  Enabled                                                              on ━━●");
}

TEST_F(FullScreenPage, SurvivesATerminalWithoutRoom) {
    makeFolder("/var/mobile/Library/Mail/Outbox");
    const auto screen = open();
    const auto shrink = [&](const std::string& shown) {
        screen->waitFor(shown);
        for (const unsigned short size : {1, 2, 3, 4, 5, 7, 12}) {
            screen->resize({size, size});
            screen->waitForMore();
        }
        screen->resize({80, 24});
        screen->waitFor(shown);
        screen->type(escape);
        screen->waitUntilGone(shown);
        screen->waitFor("Change Log");
    };
    screen->type("?");
    shrink("Ctrl+Z");
    screen->type("/log");
    shrink("Find: log");
    screen->type("+");
    shrink("New Account Name");
    tap(*screen, "Passcode");
    shrink("Enter New Passcode");
    tap(*screen, "support");
    shrink("New Mail");
    tap(*screen, "Default");
    shrink("Restricted Apps");
}

TEST_F(FullScreenPage, DrawsASliderWithoutRoom) {
    installFixtureBundle();
    ScreenProcess screen(command, words());
    screen.waitFor("Fixture");
    screen.type("\r");
    screen.waitFor("Slider");
    screen.type(std::string(down) + down + right);
    screen.waitFor("0.5");
    for (const unsigned short columns : {1, 2, 3, 4, 5, 6, 8, 11}) {
        screen.resize({columns, 20});
        screen.waitForMore();
    }
    screen.resize({30, 20});
    screen.waitFor("Slider");
}

TEST_F(FullScreenPage, ShowsControlBytesAndWideCharactersOfAName) {
    writeAccounts({"a&#x1B;]0;title&#x7;b", "中文名字", "e&#x301;a"});
    const auto screen = open();
    screen->waitFor("a\\x1b]0;title\\x07b");
    EXPECT_EQ(screen->output().find("\x1B]0;"), std::string::npos);
    screen->waitForLine(11, "  中文名字                                                                  ›");
    screen->waitForLine(
        12, "  e\u0301a                                                                        ›");
}

TEST_F(FullScreenPage, ShowsAnotherProcesssChangeAndKeepsTheCursorOnItsRow) {
    writeAccounts({"Ann", "Ben"});
    const auto screen = open();
    screen->type("jjj");
    screen->waitForBackground("Ben", "index 25");
    writeAccounts({"Zoe", "Ann", "Ben"});
    EXPECT_EQ(wardlockCommand({"announce", "kAccounts"}).exitCode, 0);
    screen->waitFor("Zoe");
    screen->waitForBackground("Ben", "index 25");
    screen->waitForBackground("Ann", "default");
}

TEST_F(FullScreenPage, LeavesAnAccountThatAnotherProcessRemovedWithANotice) {
    const auto screen = open();
    tap(*screen, "Default");
    screen->waitFor("‹ Wardlock");
    writeFile(documentPath, xml("<dict><key>kAccounts</key><array/></dict>"));
    EXPECT_EQ(wardlockCommand({"announce", "kAccounts"}).exitCode, 0);
    screen->waitFor("Another program removed the account “Default”.");
    screen->waitFor("‹ Settings");
    screen->type(down);
    screen->waitUntilGone("Another program");
}

TEST_F(FullScreenPage, FollowsLinksOfAWebPage) {
    HttpServer server;
    environment.set("http_proxy", server.url(""));
    environment.unset("no_proxy");
    environment.unset("NO_PROXY");
    const std::string host = "http://" WARDLOCK_REPOSITORY_HOST;
    server.reply(host + "/packagesfordev.php?name=kitbay", "<a href=/one>One</a> <a href=/two>Two</a>");
    server.reply(host + "/two", "<p>Second package</p>");
    const auto screen = open();
    tap(*screen, "More From");
    screen->waitFor("One [1] Two [2]");
    screen->type("\t\t");
    screen->waitForBackground("Two [2]", "index 25");
    screen->waitForBackground("One [1]", "default");
    screen->type("\r");
    screen->waitFor("Second package");
}

TEST_F(FullScreenPage, ListsItsKeysOverThePage) {
    const auto screen = open();
    screen->type("?");
    screen->waitFor("find a row");
    screen->waitUntilGone("q quits");
    screen->type(escape);
    screen->waitUntilGone("find a row");
    screen->type(escape);
    screen->waitFor("‹");
}

} // namespace
} // namespace wardlock::test
