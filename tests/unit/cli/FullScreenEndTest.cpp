#include "tests/support/ParameterNames.h"
#include "tests/unit/cli/FullScreenFixture.h"

#include <algorithm>
#include <csignal>
#include <functional>
#include <iterator>

namespace wardlock::test {
namespace {

/// What a terminal is left as.
struct Left {
    tcflag_t input;
    tcflag_t output;
    tcflag_t control;
    tcflag_t local;
    std::string characters;

    bool operator==(const Left&) const = default;
};

Left leftOf(const termios& modes) {
    return {modes.c_iflag, modes.c_oflag, modes.c_cflag, modes.c_lflag,
            std::string(std::begin(modes.c_cc), std::end(modes.c_cc))};
}

class FullScreenEnd : public FullScreenFixture {
protected:
    /// Starts Settings from a shell, once its terminal has been looked at.
    ScreenProcess screen{"/bin/sh", {"-c", "echo ready; read go; exec \"$0\" settings", command}};
    Left before;

    void open() {
        screen.waitFor("ready");
        before = leftOf(screen.modes());
        screen.type("\n");
        screen.waitFor("Enabled");
        EXPECT_NE(leftOf(screen.modes()), before);
    }
    void expectWhole() {
        EXPECT_EQ(leftOf(screen.modes()), before);
        EXPECT_FALSE(screen.isSecondScreen());
        EXPECT_FALSE(screen.reportsMouse());
        EXPECT_TRUE(screen.showsCaret());
        const std::string& output = screen.output();
        EXPECT_LT(output.rfind("\x1B[?2004h"), output.rfind("\x1B[?2004l")) << "pasted text is marked still";
        screen.waitFor("ready");
    }
    /// Begins to type an account's name.
    void beginName() {
        tap(screen, "Default");
        screen.waitFor("‹ Wardlock");
        screen.type(std::string(down) + "\r");
        screen.waitFor("Enter done");
        screen.type("\x15"
                    "Half");
        screen.waitFor("Half");
    }
};

TEST_F(FullScreenEnd, GivesTheTerminalBackWhenTheUserQuits) {
    open();
    screen.type("q");
    EXPECT_EQ(screen.wait(), 0);
    expectWhole();
}

TEST_F(FullScreenEnd, GivesTheTerminalBackAtCtrlC) {
    open();
    screen.type("\x1C");
    screen.type("\x03");
    EXPECT_EQ(screen.wait(), 0) << "the key that aborts a process does not";
    expectWhole();
}

class FullScreenSignal : public FullScreenEnd, public testing::WithParamInterface<int> {};

TEST_P(FullScreenSignal, StoresWhatWasTypedAndGivesTheTerminalBack) {
    open();
    beginName();
    screen.send(GetParam());
    EXPECT_EQ(screen.wait(), 0);
    expectWhole();
    EXPECT_TRUE(documentHolds("<string>Half</string>"));
}

INSTANTIATE_TEST_SUITE_P(, FullScreenSignal, testing::Values(SIGINT, SIGTERM, SIGHUP), signalName);

TEST_F(FullScreenEnd, StoresWhatWasTypedWhenTheTerminalIsGone) {
    open();
    beginName();
    screen.hangUp();
    screen.wait();
    EXPECT_TRUE(documentHolds("<string>Half</string>"));
}

TEST_F(FullScreenEnd, GivesTheTerminalBackBeforeTheReportOfAFailingPage) {
    installFixtureBundle();
    screen.waitFor("ready");
    before = leftOf(screen.modes());
    screen.type("\n");
    screen.waitFor("Fixture");
    screen.type("\r");
    screen.waitFor("Flavour");
    tap(screen, "Fail");
    EXPECT_EQ(screen.wait(), -1) << "a signal ends it";
    expectWhole();
    screen.waitFor("NSException");
}

TEST_F(FullScreenEnd, GivesTheTerminalBackWhileItIsSuspended) {
    ScreenProcess shell("/bin/sh", {"-mc", "\"$0\" settings; echo left; read answer; fg", command});
    shell.waitFor("Enabled");
    tap(shell, "Default");
    shell.waitFor("‹ Wardlock");
    shell.type("\x1A");
    shell.waitFor("left");
    EXPECT_FALSE(shell.isSecondScreen());
    EXPECT_FALSE(shell.reportsMouse());
    EXPECT_TRUE(shell.showsCaret());
    EXPECT_NE(shell.modes().c_lflag & ECHO, 0U);
    EXPECT_NE(shell.modes().c_lflag & ICANON, 0U);
    shell.resize({60, 20});
    shell.type("\n");
    shell.waitFor("‹ Wardlock");
    EXPECT_TRUE(shell.isSecondScreen());
    EXPECT_TRUE(shell.reportsMouse());
    EXPECT_EQ(shell.modes().c_lflag & ECHO, 0U);
    shell.waitForLine(2, "  Enabled                                         off ○──  █");
    shell.type("q");
    EXPECT_EQ(shell.wait(), 0);
    EXPECT_FALSE(shell.isSecondScreen());
    EXPECT_NE(shell.modes().c_lflag & ECHO, 0U);
}

TEST_F(FullScreenEnd, DrawsTheScreenAgainAfterAStop) {
    open();
    screen.waitForLine(0, "  ‹ Settings                        Wardlock                             + Add");
    screen.send(SIGSTOP);
    screen.overwrite("\x1B[2J\x1B[Hnoise");
    EXPECT_EQ(screen.line(0), "noise");
    screen.send(SIGCONT);
    screen.waitFor("‹ Settings");
    screen.waitUntilGone("noise");
}

} // namespace
} // namespace wardlock::test
