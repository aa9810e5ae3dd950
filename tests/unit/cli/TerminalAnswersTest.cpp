#include "tests/support/TerminalProcess.h"
#include "tests/unit/cli/LineModeFixture.h"

#include <string>

namespace wardlock::test {
namespace {

/// Settings line by line.
class TerminalAnswers : public LineModeFixture {
protected:
    void writeAccounts(const std::vector<std::string>& names) const {
        writeFile(documentPath, accountsDocument(names));
    }
};

TEST_F(TerminalAnswers, TapTheRowOfAName) {
    writeAccounts({"Ann", "Ben"});
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    terminal.type("bEN\n");
    EXPECT_NE(terminal.waitFor(question).find("‹ Wardlock   Ben"), std::string::npos);
    terminal.type("sIRI\n");
    EXPECT_NE(terminal.waitFor(question).find("Ben"), std::string::npos);
    EXPECT_NE(readFile(documentPath).find("<key>kRestrictSiri</key>\n\t\t\t<true/>"), std::string::npos);
}

TEST_F(TerminalAnswers, FlipNoSwitchByTheBeginningOfItsName) {
    writeAccounts({"Ann"});
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    const std::string before = readFile(documentPath);
    terminal.type("enable\n");
    terminal.waitFor("Unknown command 'enable'; ? lists all commands.");
    terminal.waitFor(question);
    EXPECT_EQ(readFile(documentPath), before);
}

TEST_F(TerminalAnswers, ListTheRowsThatANameFits) {
    writeAccounts({"Anna", "Anton", "Ann", "ann"});
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    terminal.type("an\n");
    terminal.waitFor("'an' names several rows: 3 Anna, 4 Anton, 5 Ann, 6 ann.");
    terminal.waitFor(question);
    terminal.type("ann\n");
    terminal.waitFor("'ann' names several rows: 5 Ann, 6 ann.");
    terminal.waitFor(question);
    terminal.type("anton\n");
    EXPECT_NE(terminal.waitFor(question).find("‹ Wardlock   Anton"), std::string::npos);
}

TEST_F(TerminalAnswers, AreUnknownWhereNoRowHasTheName) {
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    terminal.type("nobody\n");
    terminal.waitFor("Unknown command 'nobody'; ? lists all commands.");
}

TEST_F(TerminalAnswers, TapARowOfATableThatIsNotShown) {
    installFixtureBundle();
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    terminal.type("fixture\n");
    terminal.waitFor(question);
    terminal.type("table\n");
    terminal.waitFor("Rows 1 to 18 of 10000");
    terminal.waitFor(question);
    terminal.type("row 21\n");
    terminal.waitFor(question);
    terminal.type("n\n");
    EXPECT_NE(terminal.waitFor(question).find("  4  Row 21" + std::string(67, ' ') + "on"),
              std::string::npos);
}

TEST_F(TerminalAnswers, TurnTheLongPageOfAList) {
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    terminal.type("default\n");
    const std::string first = terminal.waitFor(question);
    EXPECT_NE(first.find("Lines 1 to 18 of 38; n shows the next, p the previous"), std::string::npos)
        << first;
    EXPECT_EQ(first.find("Delete Account"), std::string::npos);
    terminal.type("n\n");
    EXPECT_NE(terminal.waitFor(question).find("Lines 19 to 36 of 38"), std::string::npos);
    terminal.type("n\n");
    EXPECT_NE(terminal.waitFor(question).find(" 20  Delete Account"), std::string::npos);
    terminal.type("p\n");
    EXPECT_NE(terminal.waitFor(question).find("Lines 19 to 36 of 38"), std::string::npos);
    terminal.type("20\n");
    terminal.waitFor("Are you sure");
}

TEST_F(TerminalAnswers, KeepWhatWasTypedWhileThePageIsShownAgain) {
    writeAccounts({"Ann", "Ben"});
    TerminalProcess terminal(command, words());
    terminal.waitFor(question);
    terminal.type("Ax");
    terminal.waitFor("Ax");
    writeAccounts({"Ann", "Ben", "Zoe"});
    EXPECT_EQ(wardlockCommand({"announce", "kAccounts"}).exitCode, 0);
    terminal.waitFor("Zoe");
    terminal.waitFor(std::string(question) + "Ax");
    terminal.type("\x7F");
    terminal.waitFor("\b \b");
    terminal.type("nü\x7F"
                  "n\n");
    EXPECT_NE(terminal.waitFor(question).find("‹ Wardlock   Ann"), std::string::npos);
    EXPECT_TRUE(terminal.echoes());
    terminal.type("q\n");
    EXPECT_EQ(terminal.wait(), 0);
}

TEST_F(TerminalAnswers, LeaveAPageWholeForAPipe) {
    writeAccounts({"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l", "m", "n", "o"});
    const ProcessResult result = wardlockCommand({"settings", "--plain"});
    EXPECT_NE(result.output.find("  3  a"), std::string::npos);
    EXPECT_NE(result.output.find(" 21  More From Tavix"), std::string::npos);
    EXPECT_EQ(result.output.find("n shows the next"), std::string::npos);
}

} // namespace
} // namespace wardlock::test
