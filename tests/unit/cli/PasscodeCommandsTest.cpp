#include "tests/support/TerminalProcess.h"
#include "tests/unit/cli/VerbsFixture.h"

#include <csignal>

namespace wardlock::test {
namespace {

using platform::Value;

class PasscodeCommand : public VerbsFixture {
protected:
    Value passcode() const { return *stored().find(kPasscode); }
};

TEST_F(PasscodeCommand, SetsAFirstPasscodeFromStandardInput) {
    expectAnnounces({"passcode", "set"}, {R"({"key":"kPasscode","value":"1234",)"}, "1234\n");
    EXPECT_EQ(passcode(), Value("1234"));
}

TEST_F(PasscodeCommand, AsksForTheCurrentPasscodeBeforeTheNewOne) {
    write(document("1234"));
    expectRefuses({"passcode", "set"}, 1, "passcode set: wrong passcode", "4321\n5678\n");
    expectRefuses({"passcode", "set"}, 1, "passcode set: no passcode was entered", "1234\n");
    EXPECT_EQ(run({"passcode", "set"}, "1234\n5678\n").exitCode, 0);
    EXPECT_EQ(passcode(), Value("5678"));
}

TEST_F(PasscodeCommand, TakesFourDigitsAlone) {
    for (const char* wrong : {"123", "12345", "12a4", " 1234", "\n"})
        expectRefuses({"passcode", "set"}, 1, "passcode set: a passcode has four digits",
                      std::string(wrong) + '\n');
}

TEST_F(PasscodeCommand, RefusesAnArgumentWithoutRepeatingIt) {
    for (const char* verb : {"set", "clear", "check"})
        expectRefuses({"passcode", verb, "1234"}, 2,
                      "passcode " + std::string(verb) +
                          ": the passcode is not an argument: type it when asked, or give it on standard "
                          "input (see wardlock passcode " +
                          verb + " --help)");
}

TEST_F(PasscodeCommand, ClearsThePasscodeAfterItWasEntered) {
    write(document("1234"));
    expectRefuses({"passcode", "clear"}, 1, "passcode clear: wrong passcode", "4321\n");
    expectAnnounces({"passcode", "clear"}, {R"({"key":"kPasscode","value":"",)"}, "1234\n");
    EXPECT_EQ(passcode(), Value(""));
    const std::string before = readFile(documentPath);
    expectPrints({"passcode", "clear"}, "");
    EXPECT_EQ(readFile(documentPath), before);
}

TEST_F(PasscodeCommand, ChecksWhetherAnEntryIsThePasscode) {
    expectRefuses({"passcode", "check"}, 1, "passcode check: no passcode is set", "1234\n");
    write(document("1234"));
    expectRefuses({"passcode", "check"}, 1, "passcode check: wrong passcode", "4321\n");
    EXPECT_EQ(run({"passcode", "check"}, "1234").exitCode, 0);
}

TEST_F(PasscodeCommand, MatchesNothingWhereTheDocumentHasNoText) {
    write({{kEnabled, true}, {kPasscode, 1234}, {kAccounts, *document().find(kAccounts)}});
    expectRefuses({"passcode", "set"}, 1, "passcode set: wrong passcode", "1234\n5678\n");
}

TEST_F(PasscodeCommand, DoesNotShowOnATerminalWhatIsTyped) {
    write(document("1234"));
    TerminalProcess terminal(command, {"passcode", "set"});
    std::string seen = terminal.waitFor("Enter Current Passcode: ");
    EXPECT_FALSE(terminal.echoes());
    terminal.type("1234\n");
    seen += terminal.waitFor("Enter New Passcode: ");
    terminal.type("5678\n");
    EXPECT_EQ(terminal.wait(), 0);
    seen += terminal.output();
    EXPECT_EQ(seen.find_first_of("12345678"), std::string::npos) << seen;
    EXPECT_EQ(passcode(), Value("5678"));
}

TEST_F(PasscodeCommand, EndsOnATerminalAfterTheFourthWrongEntry) {
    write(document("1234"));
    TerminalProcess terminal(command, {"passcode", "set"});
    for (int attempt = 0; attempt < 4; ++attempt) {
        terminal.waitFor("Enter Current Passcode: ");
        terminal.type("9999\n");
    }
    EXPECT_EQ(terminal.wait(), 1);
    EXPECT_NE(terminal.output().find("wrong passcode"), std::string::npos);
    EXPECT_EQ(passcode(), Value("1234"));
}

TEST_F(PasscodeCommand, GivesTheTerminalBackWhenASignalEndsTheEntry) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        TerminalProcess terminal(command, {"passcode", "set"});
        terminal.waitFor("Enter New Passcode: ");
        EXPECT_FALSE(terminal.echoes());
        terminal.send(signal);
        EXPECT_EQ(terminal.wait(), 1);
        EXPECT_TRUE(terminal.echoes());
    }
    EXPECT_EQ(passcode(), Value(""));
}

} // namespace
} // namespace wardlock::test
