// The guard of Settings as a script, a terminal line by line, and a full-screen terminal meet it.

#include "cli/io/Json.h"
#include "tests/support/TerminalProcess.h"
#include "tests/unit/cli/Conversation.h"
#include "tests/unit/cli/FullScreenFixture.h"
#include "tests/unit/cli/LineModeFixture.h"
#include "tests/unit/cli/ProtectedDocument.h"

#include <csignal>
#include <nlohmann/json.hpp>

namespace wardlock::test {
namespace {

using cli::Json;

constexpr const char* keypadQuestion = "cancels): ";

class GuardOfScripts : public BusFixture {
protected:
    GuardOfScripts() { writeFile(documentPath, protectedDocument()); }

    Conversation converse(const std::string& name = "commands") const {
        return Conversation(folder() / name);
    }
    static Json reply(Conversation& script, const std::string& command) {
        return cli::parseJson(script.say(command)).value_or(Json());
    }
    static void expectDone(Conversation& script, const std::string& command) {
        const Json got = reply(script, command);
        EXPECT_EQ(got.value("ok", false), true) << command << ": " << got;
    }
    static void enter(Conversation& script) {
        expectDone(script, R"({"do":"tap","row":"Wardlock"})");
        expectDone(script, R"({"do":"keypad","passcode":"1234"})");
        expectDone(script, R"({"do":"step","seconds":0.5})");
    }
    static std::string title(Conversation& script) {
        return reply(script, R"({"do":"see"})")["page"].value("title", "");
    }
};

class GuardOfLineMode : public LineModeFixture {
protected:
    GuardOfLineMode() { writeFile(documentPath, protectedDocument()); }
};

class GuardOfFullScreen : public FullScreenFixture {
protected:
    GuardOfFullScreen() { writeFile(documentPath, protectedDocument()); }
};

} // namespace

TEST_F(GuardOfScripts, AsksBeforeTheBundleOpens) {
    auto script = converse();
    expectDone(script, R"({"do":"tap","row":"Wardlock"})");
    const Json seen = reply(script, R"({"do":"see"})");
    EXPECT_EQ(seen["keypad"]["status"], "Enter Passcode");
    EXPECT_EQ(seen["page"]["title"], "Settings");
    EXPECT_EQ(reply(script, R"({"do":"tap","row":"Wardlock"})")["error"], "the keypad covers the page");
    expectDone(script, R"({"do":"keypad","digits":"1234"})");
    expectDone(script, R"({"do":"step","seconds":0.5})");
    EXPECT_EQ(title(script), "Wardlock");
}

TEST_F(GuardOfScripts, ShowsNoDigits) {
    auto script = converse();
    expectDone(script, R"({"do":"tap","row":"Wardlock"})");
    expectDone(script, R"({"do":"keypad","digits":"123"})");
    const Json seen = reply(script, R"({"do":"see"})");
    EXPECT_EQ(seen["keypad"]["digits"], 3);
    EXPECT_EQ(seen["keypad"].dump().find("123"), std::string::npos);
}

TEST_F(GuardOfScripts, LocksWhenTheScriptResigns) {
    auto script = converse();
    enter(script);
    expectDone(script, R"({"do":"tap","row":"Tom"})");
    expectDone(script, R"({"do":"type","row":"Account Name","text":"Thomas"})");
    expectDone(script, R"({"do":"resign"})");
    EXPECT_EQ(title(script), "Settings");
    EXPECT_NE(readFile(documentPath).find("Thomas"), std::string::npos);
    expectDone(script, R"({"do":"tap","row":"Wardlock"})");
    EXPECT_EQ(title(script), "Settings");
}

TEST_F(GuardOfScripts, LocksAfterAnHourOfStepsWithoutAnAction) {
    auto script = converse();
    enter(script);
    expectDone(script, R"({"do":"step","seconds":1800})");
    EXPECT_EQ(title(script), "Wardlock");
    expectDone(script, R"({"do":"step","seconds":1800})");
    EXPECT_EQ(title(script), "Settings");
}

TEST_F(GuardOfScripts, AsksInASecondProcessThoughTheFirstHasEntered) {
    auto first = converse("first");
    enter(first);
    auto second = converse("second");
    expectDone(second, R"({"do":"tap","row":"Wardlock"})");
    EXPECT_EQ(title(second), "Settings");
    EXPECT_EQ(title(first), "Wardlock");
}

TEST_F(GuardOfScripts, OpensWhenAnotherProcessRemovesThePasscode) {
    auto script = converse();
    expectDone(script, R"({"do":"tap","row":"Wardlock"})");
    ProcessSetup setup;
    setup.input = "1234\n";
    EXPECT_EQ(wardlockCommand({"passcode", "clear"}, setup).exitCode, 0);
    expectDone(script, R"({"do":"wait","for":"change"})");
    EXPECT_EQ(title(script), "Wardlock");
}

TEST_F(GuardOfScripts, LocksWhenTheProcessWasStopped) {
    auto script = converse();
    enter(script);
    script.process().send(SIGSTOP);
    script.process().send(SIGCONT);
    EXPECT_EQ(title(script), "Settings");
}

TEST_F(GuardOfLineMode, AsksBeforeItShowsThePage) {
    TerminalProcess terminal(command, words());
    const std::string asked = terminal.waitFor(keypadQuestion);
    EXPECT_NE(asked.find("Enter Passcode"), std::string::npos) << asked;
    EXPECT_EQ(asked.find("Tom"), std::string::npos) << asked;
    EXPECT_FALSE(terminal.echoes());
    terminal.type("9999\n");
    terminal.waitFor("Wrong passcode.");
    terminal.waitFor(keypadQuestion);
    terminal.type("1234\n");
    const std::string page = terminal.waitFor(question);
    EXPECT_NE(page.find("Tom"), std::string::npos) << page;
    EXPECT_EQ(page.find("1234"), std::string::npos) << page;
}

TEST_F(GuardOfLineMode, StaysOnTheListOfBundlesAfterCancel) {
    TerminalProcess terminal(command, words());
    terminal.waitFor(keypadQuestion);
    terminal.type("\n");
    const std::string page = terminal.waitFor(question);
    EXPECT_NE(page.find("Wardlock"), std::string::npos) << page;
    EXPECT_EQ(page.find("Tom"), std::string::npos) << page;
    terminal.type("1\n");
    terminal.waitFor("Enter Passcode");
}

TEST_F(GuardOfLineMode, AsksAgainAfterAnotherApplication) {
    TerminalProcess terminal(command, words());
    terminal.waitFor(keypadQuestion);
    terminal.type("1234\n");
    terminal.waitFor(question);
    terminal.type("z\n");
    EXPECT_EQ(terminal.waitFor(question).find("Tom"), std::string::npos);
    terminal.type("1\n");
    terminal.waitFor("Enter Passcode");
}

TEST_F(GuardOfLineMode, ShowsNoPageWhereNothingCanBeTyped) {
    const ProcessResult result = wardlockCommand({"settings", "--terminal"});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_NE(result.output.find("Wardlock"), std::string::npos) << result.output;
    EXPECT_EQ(result.output.find("Tom"), std::string::npos) << result.output;
}

TEST_F(GuardOfFullScreen, AsksBeforeItShowsThePage) {
    ScreenProcess screen(command, words());
    screen.waitFor("Enter Passcode");
    screen.type("1234");
    screen.waitFor("Tom");
    screen.waitUntilGone("Enter Passcode");
}

TEST_F(GuardOfFullScreen, StaysOnTheListOfBundlesAfterEscape) {
    ScreenProcess screen(command, words());
    screen.waitFor("Enter Passcode");
    screen.type(escape);
    screen.waitUntilGone("Enter Passcode");
    screen.waitFor("Wardlock");
    screen.type("\r");
    screen.waitFor("Enter Passcode");
    screen.type("0000000000000000");
    screen.waitUntilGone("Enter Passcode");
    screen.waitFor("Wardlock");
}

TEST_F(GuardOfFullScreen, LocksWhenItWasStopped) {
    ScreenProcess screen(command, words());
    screen.waitFor("Enter Passcode");
    screen.type("1234");
    screen.waitFor("Tom");
    screen.waitUntilGone("Enter Passcode");
    screen.send(SIGSTOP);
    screen.send(SIGCONT);
    screen.waitUntilGone("Tom");
    screen.waitFor("Wardlock");
}

} // namespace wardlock::test
