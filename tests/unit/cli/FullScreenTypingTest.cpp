#include "tests/unit/cli/FullScreenFixture.h"

#include <string>

namespace wardlock::test {
namespace {

class FullScreenTyping : public FullScreenFixture {
protected:
    /// Opens the account's page and begins to type its name.
    static std::unique_ptr<ScreenProcess> openName() {
        auto screen = open();
        tap(*screen, "Default");
        screen->waitFor("‹ Wardlock");
        screen->type(std::string(down) + "\r");
        screen->waitFor("Enter done");
        return screen;
    }
};

TEST_F(FullScreenTyping, EditsTheTextInItsRow) {
    const auto screen = openName();
    screen->waitForLine(3,
                        "  Default                                                                      █");
    screen->waitForCaret(3, 9);
    screen->waitForBackground("Default  ", "index 239");
    screen->type(std::string(home) + "My \x1BOC\x1BOC\x1B[3~");
    screen->waitFor("My Deault");
    screen->waitForCaret(3, 7);
    EXPECT_FALSE(documentHolds("My Deault")) << "it is stored at the end";
    screen->type("\r");
    screen->waitForNoCaret();
    EXPECT_TRUE(documentHolds("<string>My Deault</string>"));
}

TEST_F(FullScreenTyping, TakesWideCharactersAndMarksAsOne) {
    const auto screen = openName();
    screen->type("\x15"
                 "中e\u0301文");
    screen->waitFor("中e\u0301文");
    screen->waitForCaret(3, 2 + 5);
    screen->type("\x7F\x7F");
    screen->waitUntilGone("文");
    screen->waitForCaret(3, 4);
    screen->type("\t");
    screen->waitForNoCaret();
    EXPECT_TRUE(documentHolds("<string>中</string>"));
}

TEST_F(FullScreenTyping, ShowsTheEndOfALongText) {
    const auto screen = openName();
    screen->type("\x15" + std::string(70, 'a') + "the end");
    screen->waitFor("the end");
    screen->waitForLine(3, "  " + std::string(67, 'a') + "the end   █");
    screen->type(home);
    screen->waitFor("the …");
    screen->waitForCaret(3, 2);
}

TEST_F(FullScreenTyping, TakesPastedTextAsTextOfOneLine) {
    const auto screen = openName();
    screen->type("\x15\x1B[200~Ann\rq\rBen\x1B[201~");
    screen->waitFor("Ann q Ben");
    screen->type("\r");
    screen->waitForNoCaret();
    EXPECT_TRUE(documentHolds("<string>Ann q Ben</string>"));
}

TEST_F(FullScreenTyping, KeepsWhatIsTypedWhileAnotherProcessChangesThePage) {
    const auto screen = openName();
    screen->type("\x15"
                 "Half");
    screen->waitFor("Half");
    writeFile(documentPath,
              xml("<dict><key>kAccounts</key><array><dict><key>kAccountName</key><string>Default</string>"
                  "<key>kRestrictSiri</key><true/><key>kAccountEnabled</key><true/></dict></array></dict>"));
    EXPECT_EQ(wardlockCommand({"announce", "kAccounts"}).exitCode, 0);
    screen->waitUntil([&] { return screen->line(2).find("on ━━●") != std::string::npos; },
                      "the enabled account");
    screen->waitForLine(3,
                        "  Half                                                                         █");
    screen->waitForCaret(3, 6);
    screen->type("way\r");
    screen->waitFor("Halfway");
    screen->waitForNoCaret();
    EXPECT_TRUE(documentHolds("<string>Halfway</string>"));
    EXPECT_TRUE(documentHolds("<key>kRestrictSiri</key>"));
}

TEST_F(FullScreenTyping, HidesSecureText) {
    installFixtureBundle();
    ScreenProcess screen(command, words());
    screen.waitFor("Fixture");
    screen.type("\r");
    screen.waitFor("PIN");
    tap(screen, "PIN");
    screen.waitFor("Enter done");
    screen.type("s3cret");
    screen.waitFor("••••••");
    screen.type("\r");
    screen.waitForNoCaret();
    EXPECT_EQ(screen.output().find("s3cret"), std::string::npos);
    EXPECT_NE(readFile("/var/mobile/Library/Preferences/test.fixture.plist").find("s3cret"),
              std::string::npos);
}

} // namespace
} // namespace wardlock::test
