#include "tests/unit/cli/FullScreenFixture.h"

#include <filesystem>
#include <string>

namespace wardlock::test {
namespace {

class FullScreenSheets : public FullScreenFixture {};

TEST_F(FullScreenSheets, CreatesAnAccountThroughTheAlert) {
    const auto screen = open();
    screen->type("+");
    screen->waitFor("New Account Name");
    screen->waitFor("Create (disabled)");
    std::string edge;
    for (int column = 0; column < 58; ++column)
        edge += "─";
    screen->waitForLine(8, std::string(10, ' ') + "╭" + edge + "╮");
    screen->type("\r");
    screen->waitFor("Not possible: the button is disabled.");
    screen->type("Ann");
    screen->waitUntilGone("(disabled)");
    screen->waitForBackground("Ann", "index 239");
    screen->waitForCaret(11, 15);
    screen->type("\r");
    screen->waitUntilGone("New Account");
    screen->waitForLine(11, "  Ann                                                                       ›");
    screen->waitForBackground("Ann", "index 25");
}

TEST_F(FullScreenSheets, DeletesNothingWhenEnterIsPressedTwice) {
    writeAccounts({"Ann", "Ben"});
    const auto screen = open();
    tap(*screen, "Ann");
    screen->waitFor("‹ Wardlock");
    screen->type(std::string(end) + "\r");
    screen->waitFor("Are you sure");
    screen->waitForBackground("Cancel", "index 25");
    screen->type("\r");
    screen->waitUntilGone("Are you sure");
    EXPECT_TRUE(documentHolds("Ann"));
    screen->type("\r");
    screen->waitFor("Are you sure");
    screen->type("\t\r");
    screen->waitFor("‹ Settings");
    EXPECT_FALSE(documentHolds("Ann"));
    EXPECT_TRUE(documentHolds("Ben"));
}

TEST_F(FullScreenSheets, PressesAButtonOfAnAlertByTheMouse) {
    const auto screen = open();
    screen->type("+");
    screen->waitFor("New Account Name");
    screen->click(screen->lineWith("Cancel"), 25);
    screen->waitUntilGone("New Account Name");
}

TEST_F(FullScreenSheets, NeverShowsADigitOfThePasscode) {
    const auto screen = open();
    tap(*screen, "Passcode");
    screen->waitFor("Enter New Passcode");
    const std::string before = screen->output();
    screen->waitFor("○  ○  ○  ○");
    screen->type("58");
    screen->waitFor("●  ●  ○  ○");
    screen->type("\x7F"
                 "96");
    screen->waitFor("●  ●  ●  ○");
    screen->type("4");
    screen->waitUntilGone("Enter New Passcode");
    EXPECT_TRUE(documentHolds("<string>5964</string>"));
    screen->type("q");
    EXPECT_EQ(screen->wait(), 0);
    // The digits of the keypad itself, and of control sequences, are none that were typed.
    EXPECT_EQ(screen->output().find("5964"), std::string::npos);
    screen->waitUntilGone("5964");
}

TEST_F(FullScreenSheets, TakesThePasscodeByTheMouse) {
    const auto screen = open();
    tap(*screen, "Passcode");
    screen->waitFor("1    2    3");
    const int line = screen->lineWith("1    2    3");
    for (int digit = 0; digit < 3; ++digit)
        screen->click(line, 34 + digit * 5);
    screen->waitFor("●  ●  ●  ○");
    screen->click(line + 3, 39);
    screen->waitUntilGone("Enter New Passcode");
    EXPECT_TRUE(documentHolds("<string>1230</string>"));
}

TEST_F(FullScreenSheets, ReportsAWrongPasscodeAndCancels) {
    writeFile(documentPath, xml("<dict><key>kPasscode</key><string>4711</string></dict>"));
    const auto screen = open({40, 12});
    tap(*screen, "Passcode");
    screen->waitFor("Enter Current Passcode");
    screen->type("0000");
    screen->waitFor("Wrong passcode.");
    screen->type(escape);
    screen->waitUntilGone("Enter Current");
    EXPECT_TRUE(documentHolds("4711"));
}

TEST_F(FullScreenSheets, ClosesTheKeypadWhenItIsSuspended) {
    const auto screen = open();
    tap(*screen, "Passcode");
    screen->waitFor("Enter New Passcode");
    screen->type("12\x1A");
    screen->waitUntilGone("Enter New Passcode");
    EXPECT_FALSE(documentHolds("12"));
}

TEST_F(FullScreenSheets, WritesAndSendsAMail) {
    makeFolder("/var/mobile/Library/Mail/Outbox");
    writeFile("/var/mobile/com.tavix.wardlock_log", "an entry");
    const auto screen = open();
    tap(*screen, "support");
    screen->waitFor("New Mail");
    screen->waitForLine(2, "  To:      support@tavix.example");
    screen->waitFor("Attached: log, 8 bytes");
    screen->waitUntilGone("General");
    screen->waitForCaret(5, 2);
    screen->type(std::string("\x1B[Z") + " (urgent)");
    screen->waitFor("(urgent)");
    screen->type(std::string("\t") + end + "!\r" + "Second line");
    screen->waitFor("Second line");
    screen->waitForLine(5, "  Application: Wardlock!");
    screen->waitForCaret(6, 13);
    screen->type("\t\x1B[3~");
    screen->waitUntilGone("Attached");
    screen->type("\x13");
    screen->waitFor("The mail was saved");
    screen->waitUntilGone("New Mail");
    screen->type("q");
    EXPECT_EQ(screen->wait(), 0);
    const std::filesystem::directory_iterator mails(onDisk("/var/mobile/Library/Mail/Outbox"));
    ASSERT_NE(mails, std::filesystem::directory_iterator());
    const std::string mail = readFile("/var/mobile/Library/Mail/Outbox/" + mails->path().filename().string());
    EXPECT_NE(mail.find("(urgent)"), std::string::npos) << mail;
    EXPECT_EQ(mail.find("attachment"), std::string::npos) << mail;
}

} // namespace
} // namespace wardlock::test
