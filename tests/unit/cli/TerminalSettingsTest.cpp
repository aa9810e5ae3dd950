#include "tests/support/BuildPaths.h"
#include "tests/support/HttpServer.h"
#include "tests/support/TerminalProcess.h"
#include "tests/unit/cli/LineModeFixture.h"

#include <csignal>
#include <filesystem>
#include <sstream>

namespace wardlock::test {
namespace {

class TerminalSettings : public LineModeFixture {
protected:
    static std::string rule(int columns) {
        std::string rule;
        for (int column = 0; column < columns; ++column)
            rule += "─";
        return rule;
    }
    /// The number before the label on the page.
    static std::string rowOf(const std::string& label, const std::string& page) {
        std::istringstream words(page.substr(page.rfind('\n', page.find(label)) + 1));
        std::string number;
        words >> number;
        return number;
    }
    bool documentHolds(std::string_view text) const {
        return readFile(documentPath).find(text) != std::string::npos;
    }
};

TEST_F(TerminalSettings, ShowsTheOnlyBundlesPageWithNumberedRows) {
    TerminalProcess terminal(command, words());
    const std::string page = terminal.waitFor(question);
    EXPECT_NE(page.find("‹ Settings   Wardlock   [+]"), std::string::npos) << page;
    EXPECT_NE(page.find("  1  Enabled"), std::string::npos) << page;
    EXPECT_NE(page.find("  3  Default"), std::string::npos) << page;
    EXPECT_NE(page.find("Use the '+' button"), std::string::npos) << page;
    EXPECT_EQ(page.find('\x1B'), std::string::npos) << "no colours were wanted";
}

TEST_F(TerminalSettings, TapsTheRowOfANumber) {
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    terminal.type("1\n");
    EXPECT_NE(terminal.waitFor(question).find("off"), std::string::npos);
    EXPECT_TRUE(documentHolds("<false/>"));
    terminal.type("q\n");
    EXPECT_EQ(terminal.wait(), 0);
}

TEST_F(TerminalSettings, AsksForTextAndGoesBack) {
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    terminal.type("3\n");
    EXPECT_NE(terminal.waitFor(question).find("Restricted Apps"), std::string::npos);
    terminal.type("2\n");
    terminal.waitFor("clears it): ");
    terminal.type("  Jürgen 中文 \n");
    terminal.waitFor(question);
    terminal.type("b\n");
    EXPECT_NE(terminal.waitFor(question).find("Jürgen 中文  "), std::string::npos);
    EXPECT_TRUE(documentHolds("<string>  Jürgen 中文 </string>"));
}

TEST_F(TerminalSettings, KeepsTheTextOnEnterAndEmptiesItOnQuotes) {
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    terminal.type("3\n");
    terminal.waitFor(question);
    const std::string before = readFile(documentPath);
    terminal.type("2\n");
    terminal.waitFor("clears it): ");
    terminal.type("\n");
    terminal.waitFor(question);
    EXPECT_EQ(readFile(documentPath), before);
    terminal.type("2\n");
    terminal.waitFor("clears it): ");
    terminal.type("\"\"\n");
    terminal.waitFor(question);
    EXPECT_TRUE(documentHolds("<string>Blank</string>"));
}

TEST_F(TerminalSettings, FollowsTheLinkOfANumberOnAWebPage) {
    HttpServer server;
    environment.set("http_proxy", server.url(""));
    environment.unset("no_proxy");
    environment.unset("NO_PROXY");
    const std::string host = "http://" WARDLOCK_REPOSITORY_HOST;
    server.reply(host + "/packagesfordev.php?name=kitbay", "<a href=/one>One</a>");
    server.reply(host + "/one", "<p>First package</p>");
    TerminalProcess terminal(command, words());
    const std::string row = rowOf("More From Tavix", terminal.waitFor(question));
    terminal.type(row + "\n");
    terminal.waitFor("One [1]");
    terminal.waitFor(question);
    terminal.type("f 2\n");
    terminal.waitFor("the web page has no such link");
    terminal.waitFor(question);
    terminal.type("f 1\n");
    terminal.waitFor("First package");
}

TEST_F(TerminalSettings, DoesNotShowThePasscode) {
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    EXPECT_TRUE(terminal.echoes());
    terminal.type("2\n");
    EXPECT_NE(terminal.waitFor("cancels): ").find("Enter New Passcode"), std::string::npos);
    EXPECT_FALSE(terminal.echoes());
    terminal.type("4711\n");
    const std::string after = terminal.waitFor(question);
    EXPECT_EQ(after.find("4711"), std::string::npos) << after;
    EXPECT_TRUE(terminal.echoes());
    EXPECT_TRUE(documentHolds("<string>4711</string>"));
}

TEST_F(TerminalSettings, SurvivesTheAbortKeyAtThePasscodeAndRestoresTheEcho) {
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    terminal.type("2\n");
    terminal.waitFor("cancels): ");
    // The key that aborts a process.
    terminal.type("\x1C\n");
    terminal.waitFor("A passcode has four digits.");
    terminal.waitFor("cancels): ");
    EXPECT_FALSE(terminal.echoes());
    terminal.type("\x03");
    EXPECT_EQ(terminal.wait(), 0);
    EXPECT_TRUE(terminal.echoes());
}

TEST_F(TerminalSettings, EndsWhenItsTerminalIsGone) {
    // As under nohup, where the signal that reports it is ignored.
    TerminalProcess terminal("/bin/sh", {"-c", "trap '' HUP; exec \"$0\" settings --plain", command});
    terminal.waitFor(question);
    terminal.hangUp();
    EXPECT_EQ(terminal.wait(), 1);
}

TEST_F(TerminalSettings, ReportsAWrongPasscodeAndClosesAfterTheFourth) {
    writeFile(documentPath, xml("<dict><key>kPasscode</key><string>4711</string></dict>"));
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    terminal.type("2\n");
    for (int attempt = 0; attempt < 3; ++attempt) {
        EXPECT_NE(terminal.waitFor("cancels): ").find("Enter Current Passcode"), std::string::npos);
        terminal.type("0000\n");
        terminal.waitFor("Wrong passcode.");
    }
    terminal.waitFor("cancels): ");
    terminal.type("0000\n");
    EXPECT_EQ(terminal.waitFor(question).find("Wrong"), std::string::npos);
}

TEST_F(TerminalSettings, ClosesTheKeypadWhenItIsLeftForAnotherApplication) {
    writeFile(documentPath, xml("<dict><key>kPasscode</key><string></string></dict>"));
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    const std::string before = readFile(documentPath);
    terminal.type("2\n");
    terminal.waitFor("cancels): ");
    terminal.type("z\n");
    terminal.waitFor(question);
    EXPECT_EQ(readFile(documentPath), before);
}

TEST_F(TerminalSettings, ClosesTheKeypadWhenSuspendedAndIgnoresTypedDigits) {
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    const std::string before = readFile(documentPath);
    terminal.type("2\n");
    terminal.waitFor("cancels): ");
    terminal.type("\x1A");
    terminal.waitFor("The keypad was closed. Press Enter to continue: ");
    EXPECT_FALSE(terminal.echoes());
    terminal.type("4711\n");
    EXPECT_EQ(terminal.waitFor(question).find("4711"), std::string::npos);
    EXPECT_TRUE(terminal.echoes());
    EXPECT_EQ(readFile(documentPath), before);
}

TEST_F(TerminalSettings, StopsWhenSuspendedAndShowsTheTextTypedDuringTheStop) {
    // Only a process that a shell can continue is stopped: one of its jobs.
    TerminalProcess terminal("/bin/sh",
                             {"-mc", "\"$0\" settings --plain; echo left; read answer; fg", command});
    terminal.waitFor(question);
    terminal.type("2\n");
    terminal.waitFor("cancels): ");
    EXPECT_FALSE(terminal.echoes());
    terminal.type("\x1A");
    terminal.waitFor("left");
    EXPECT_TRUE(terminal.echoes());
    terminal.type("\n");
    terminal.waitFor("The keypad was closed. Press Enter to continue: ");
    EXPECT_FALSE(terminal.echoes());
    terminal.type("\n");
    terminal.waitFor(question);
    terminal.type("q\n");
    EXPECT_EQ(terminal.wait(), 0);
}

TEST_F(TerminalSettings, RestoresTheEchoWhenInterrupted) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        TerminalProcess terminal(command, words());
        terminal.waitFor(question);
        terminal.type("2\n");
        terminal.waitFor("cancels): ");
        EXPECT_FALSE(terminal.echoes());
        terminal.send(signal);
        EXPECT_EQ(terminal.wait(), 0) << signal;
        EXPECT_TRUE(terminal.echoes()) << signal;
    }
}

TEST_F(TerminalSettings, EndsWithItsInput) {
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    terminal.type("\x04");
    EXPECT_EQ(terminal.wait(), 0);
}

TEST_F(TerminalSettings, NamesTheNumbersThatAnAlertAccepts) {
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    terminal.type("+\n");
    terminal.waitFor("Number: ");
    terminal.type("4\n");
    EXPECT_NE(terminal.waitFor("Number: ").find("Type a number from 1 to 3."), std::string::npos);
    terminal.type("Create\n");
    EXPECT_NE(terminal.waitFor("Number: ").find("Type a number from 1 to 3."), std::string::npos);
}

TEST_F(TerminalSettings, CreatesAnAccountThroughTheAlert) {
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    terminal.type("+\n");
    EXPECT_NE(terminal.waitFor("Number: ").find("Create (disabled)"), std::string::npos);
    terminal.type("3\n");
    terminal.waitFor("Not possible: the button is disabled.");
    terminal.waitFor("Number: ");
    terminal.type("1\n");
    terminal.waitFor("New Account Name: ");
    terminal.type("Ann\n");
    terminal.waitFor("Number: ");
    terminal.type("3\n");
    EXPECT_NE(terminal.waitFor(question).find("  4  Ann"), std::string::npos);
}

TEST_F(TerminalSettings, ShowsANameWithoutControlCharacters) {
    writeFile(documentPath, xml("<dict><key>kAccounts</key><array><dict><key>kAccountName</key>"
                                "<string>a&#x1B;]0;title&#x7;b</string></dict></array></dict>"));
    TerminalProcess terminal(command, words());
    EXPECT_EQ(terminal.waitFor(question).find('\x1B'), std::string::npos);
}

TEST_F(TerminalSettings, ShowsLineEndsInANameAsBlanks) {
    writeFile(documentPath, xml("<dict><key>kAccounts</key><array><dict><key>kAccountName</key>"
                                "<string>An&#x2028;na&#xA;B</string></dict></array></dict>"));
    TerminalProcess terminal(command, words());
    EXPECT_NE(terminal.waitFor(question).find("  3  An na B"), std::string::npos);
}

TEST_F(TerminalSettings, FitsTheWidthOfTheTerminal) {
    TerminalProcess terminal(command, words(), {40, 24});
    const std::string page = terminal.waitFor(question);
    EXPECT_NE(page.find("\r\n" + rule(40) + "\r\n"), std::string::npos) << page;
    terminal.resize({60, 24});
    EXPECT_NE(terminal.waitFor(question).find("  1  Enabled" + std::string(46, ' ') + "on\r\n"),
              std::string::npos);
}

TEST_F(TerminalSettings, ShowsAnotherProcesssChange) {
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    writeFile(documentPath, xml("<dict><key>kAccounts</key><array><dict><key>kAccountName</key>"
                                "<string>Elsewhere</string></dict></array></dict>"));
    EXPECT_EQ(wardlockCommand({"announce", "kAccounts"}).exitCode, 0);
    EXPECT_NE(terminal.waitFor(question).find("  3  Elsewhere"), std::string::npos);
}

TEST_F(TerminalSettings, GoesBackFromAnAccountThatAnotherProcessRemoved) {
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    terminal.type("3\n");
    terminal.waitFor(question);
    writeFile(documentPath, xml("<dict><key>kAccounts</key><array/></dict>"));
    EXPECT_EQ(wardlockCommand({"announce", "kAccounts"}).exitCode, 0);
    terminal.waitFor("Another program removed the account “Default”.");
    EXPECT_NE(terminal.waitFor(question).find("‹ Settings   Wardlock"), std::string::npos);
}

TEST_F(TerminalSettings, ColoursOnlyWhereTheyAreWanted) {
    environment.unset("NO_COLOR");
    TerminalProcess terminal(command, words());
    EXPECT_NE(terminal.waitFor(question).find("\x1B[1mWardlock\x1B[0m"), std::string::npos);
}

TEST_F(TerminalSettings, ShowsALongTableAScreenAtATime) {
    installFixtureBundle();
    TerminalProcess terminal(command, words());
    EXPECT_NE(terminal.waitFor(question).find("  1  Fixture"), std::string::npos)
        << "two bundles: their list";
    terminal.type("1\n");
    EXPECT_NE(terminal.waitFor(question).find(" 12  Table"), std::string::npos);
    terminal.type("12\n");
    EXPECT_NE(terminal.waitFor(question).find("Rows 1 to 18 of 10000"), std::string::npos);
    terminal.type("n\n");
    EXPECT_NE(terminal.waitFor(question).find("  1  Row 18 "), std::string::npos);
    terminal.type("2\n");
    EXPECT_NE(terminal.waitFor(question).find("  2  Row 19" + std::string(67, ' ') + "on"),
              std::string::npos);
    terminal.type("p\n");
    EXPECT_NE(terminal.waitFor(question).find("  1  Row 0 "), std::string::npos);
}

TEST_F(TerminalSettings, AsksForSlidersAndSecureText) {
    installFixtureBundle();
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    terminal.type("1\n");
    terminal.waitFor(question);
    terminal.type("3\n");
    terminal.waitFor(": ");
    terminal.type("11\n");
    terminal.waitFor("the value is outside the range of the slider");
    terminal.waitFor(question);
    terminal.type("3\n");
    terminal.waitFor(": ");
    terminal.type("2.5\n");
    EXPECT_NE(terminal.waitFor(question).find(" 2.5\r\n"), std::string::npos);
    terminal.type("5\n");
    terminal.waitFor("clears it): ");
    EXPECT_FALSE(terminal.echoes());
    terminal.type("secret\n");
    const std::string page = terminal.waitFor(question);
    EXPECT_EQ(page.find("secret"), std::string::npos);
    EXPECT_NE(page.find("••••••"), std::string::npos);
}

TEST_F(TerminalSettings, RestoresTheTerminalWhenAPageFails) {
    installFixtureBundle();
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    terminal.type("1\n");
    EXPECT_NE(terminal.waitFor(question).find(" 10  Fail"), std::string::npos);
    terminal.type("10\n");
    EXPECT_EQ(terminal.wait(), -1) << "a signal ends it";
    EXPECT_TRUE(terminal.echoes());
}

TEST_F(TerminalSettings, ShowsThePageAndFurtherCommandsWithoutATerminal) {
    const ProcessResult result = wardlockCommand({"settings"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_NE(result.output.find("  2  Passcode"), std::string::npos);
    EXPECT_NE(result.output.find("--script FILE"), std::string::npos);
}

} // namespace
} // namespace wardlock::test
