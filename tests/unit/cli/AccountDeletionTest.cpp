#include "tests/support/TerminalProcess.h"
#include "tests/unit/cli/VerbsFixture.h"

namespace wardlock::test {
namespace {

using Names = std::vector<std::string>;

/// Deleting an account where the command can ask.
class AccountDeletionInTerminal : public VerbsFixture {
protected:
    static constexpr const char* question = "Delete account 1 (Ada)? [y/N] ";
    const Names everyone{"Ada", "Ben", "Cleo"};
};

TEST_F(AccountDeletionInTerminal, DeletesAfterAYes) {
    for (const char* answer : {"y\n", "Y\n", "yes\n", "Yes\n"}) {
        write(document());
        TerminalProcess terminal(command, {"account", "delete", "Ada"});
        terminal.waitFor(question);
        EXPECT_EQ(names(), everyone);
        terminal.type(answer);
        EXPECT_EQ(terminal.wait(), 0);
        EXPECT_EQ(names(), (Names{"Ben", "Cleo"}));
    }
}

TEST_F(AccountDeletionInTerminal, KeepsTheAccountAfterAnyOtherAnswer) {
    // The last is the end of the input.
    for (const char* answer : {"\n", "n\n", "no\n", "yy\n", " y\n", "Ada\n", "\x04"}) {
        TerminalProcess terminal(command, {"account", "delete", "1"});
        terminal.waitFor(question);
        terminal.type(answer);
        terminal.waitFor("wardlock account delete: the account was not deleted");
        EXPECT_EQ(terminal.wait(), 1);
        EXPECT_EQ(stored(), document());
    }
}

TEST_F(AccountDeletionInTerminal, AsksNothingWhereYesIsGiven) {
    for (const char* option : {"--yes", "-y"}) {
        write(document());
        TerminalProcess terminal(command, {"account", "delete", option, "Ada"});
        EXPECT_EQ(terminal.wait(), 0);
        EXPECT_EQ(terminal.output(), "");
        EXPECT_EQ(names(), (Names{"Ben", "Cleo"}));
    }
}

TEST_F(AccountDeletionInTerminal, AsksNothingAboutAnAccountThatDoesNotExist) {
    TerminalProcess terminal(command, {"account", "delete", "Kim"});
    terminal.waitFor("wardlock account delete: no account 'Kim'");
    EXPECT_EQ(terminal.wait(), 1);
    EXPECT_EQ(terminal.output().find("[y/N]"), std::string::npos);
}

TEST_F(AccountDeletionInTerminal, DeletesNoOtherAccountThatTookTheNumberMeanwhile) {
    TerminalProcess terminal(command, {"account", "delete", "1"});
    terminal.waitFor(question);
    EXPECT_EQ(run({"account", "delete", "Ada"}).exitCode, 0);
    terminal.type("y\n");
    terminal.waitFor("wardlock account delete: the accounts were changed meanwhile");
    EXPECT_EQ(terminal.wait(), 1);
    EXPECT_EQ(names(), (Names{"Ben", "Cleo"}));
}

TEST_F(AccountDeletionInTerminal, StaysWithoutAQuestionForScripts) {
    const ProcessResult result = run({"account", "delete", "Ada"}, "n\n");
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_EQ(result.output + result.errors, "");
    EXPECT_EQ(names(), (Names{"Ben", "Cleo"}));
}

} // namespace
} // namespace wardlock::test
