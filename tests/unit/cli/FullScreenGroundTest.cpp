#include "tests/unit/cli/FullScreenFixture.h"

#include <string>

namespace wardlock::test {
namespace {

constexpr const char* questions = "\x1B]11;?\x07\x1B[c";
constexpr const char* lightReply = "\x1B]11;rgb:ffff/ffff/ffff\x07";
constexpr const char* darkReply = "\x1B]11;rgb:1e1e/1e1e/1e1e\x1B\\";
constexpr const char* kindReply = "\x1B[?62;22c";
/// The cursor's row on a light ground, and on an unknown or a dark one.
constexpr const char* onLight = "index 189";
constexpr const char* onOther = "index 25";

/// Settings in a terminal whose replies are the test's.
class FullScreenGround : public FullScreenFixture {
protected:
    /// Opens Settings, whose wait for replies is over.
    static std::unique_ptr<ScreenProcess> openInSilence() {
        auto screen = std::make_unique<ScreenProcess>(command, words());
        screen->keepSilent();
        screen->waitFor("? help");
        return screen;
    }
    /// Opens Settings, which has asked.
    static std::unique_ptr<ScreenProcess> openUntilAsked() {
        auto screen = std::make_unique<ScreenProcess>(command, words());
        screen->keepSilent();
        screen->waitUntil([&] { return screen->output().find(questions) != std::string::npos; },
                          "a question");
        return screen;
    }
    /// The first page is shown whole and nothing was typed: the next key goes on from the first row.
    static void expectWhole(ScreenProcess& screen, const std::string& cursor) {
        screen.waitForBackground("Enabled", cursor);
        screen.type("j");
        screen.waitForBackground("Passcode", cursor);
        EXPECT_EQ(screen.cellAt("Enabled").background, "default");
        EXPECT_EQ(screen.line(0),
                  "  ‹ Settings                        Wardlock                             + Add");
        EXPECT_TRUE(screen.line(23).starts_with("  ")) << screen.line(23);
        EXPECT_NE(screen.line(23).find("? help"), std::string::npos) << screen.line(23);
    }
    static void waitForLink(ScreenProcess& screen, const std::string& colour) {
        screen.waitUntil([&] { return screen.lineWith("‹") >= 0 && screen.cellAt("‹").foreground == colour; },
                         "a link in " + colour);
    }
    static void setEnabled(bool on) {
        EXPECT_EQ(wardlockCommand({"set", "kEnabled", on ? "on" : "off"}).exitCode, 0);
    }
};

TEST_F(FullScreenGround, IsAskedForOnceWhereThereAreColours) {
    const auto screen = openInSilence();
    screen->type("j");
    screen->waitForBackground("Passcode", onOther);
    EXPECT_EQ(screen->output().find(questions), screen->output().rfind(questions));
    EXPECT_NE(screen->output().find(questions), std::string::npos);
    for (const char* terminal : {"vt100", "xterm-256color"}) {
        environment.set("TERM", terminal);
        const auto colourless = openInSilence();
        EXPECT_EQ(colourless->output().find("\x1B]11"), std::string::npos) << terminal;
        environment.set("NO_COLOR", "1");
    }
}

TEST_F(FullScreenGround, IsLightAfterALightReply) {
    const auto screen = openUntilAsked();
    screen->type(std::string(lightReply) + kindReply);
    expectWhole(*screen, onLight);
}

TEST_F(FullScreenGround, IsDarkAfterADarkReply) {
    const auto screen = openUntilAsked();
    screen->type(std::string(darkReply) + kindReply);
    waitForLink(*screen, "index 75");
    expectWhole(*screen, onOther);
}

TEST_F(FullScreenGround, IsOfTheReplyRatherThanOfTheEnvironment) {
    environment.set("COLORFGBG", "0;15");
    const auto screen = openUntilAsked();
    screen->type(std::string(darkReply) + kindReply);
    waitForLink(*screen, "index 75");
    expectWhole(*screen, onOther);
}

TEST_F(FullScreenGround, IsOfTheEnvironmentWithoutAReply) {
    environment.set("COLORFGBG", "0;15");
    expectWhole(*openInSilence(), onLight);
    environment.unset("COLORFGBG");
    expectWhole(*openInSilence(), onOther);
}

TEST_F(FullScreenGround, IsOfTheEnvironmentWhereOnlyTheKindIsReplied) {
    environment.set("COLORFGBG", "0;15");
    const auto screen = openUntilAsked();
    screen->type(kindReply);
    expectWhole(*screen, onLight);
}

TEST_F(FullScreenGround, IsThatOfALateReply) {
    const auto screen = openInSilence();
    screen->waitForBackground("Enabled", onOther);
    screen->type(lightReply);
    screen->waitForBackground("Enabled", onLight);
    screen->type(kindReply);
    expectWhole(*screen, onLight);
}

TEST_F(FullScreenGround, IsThatOfAReplyInTwoPieces) {
    const std::string reply = std::string(lightReply) + kindReply;
    bool on = true;
    // A change of another process is drawn when the first piece has been read.
    for (std::size_t length = 2; length < reply.size(); ++length) {
        SCOPED_TRACE(length);
        const auto screen = openInSilence();
        screen->type(reply.substr(0, length));
        on = !on;
        setEnabled(on);
        screen->waitFor(on ? "on ━━●" : "off ○──");
        screen->type(reply.substr(length));
        expectWhole(*screen, onLight);
    }
}

TEST_F(FullScreenGround, TakesAReplyThatBreaksOffAfterItsFirstByteForEscapeAlone) {
    const auto screen = openInSilence();
    screen->type("\x1B");
    screen->waitUntilGone("Passcode");
    screen->type(std::string(lightReply).substr(1) + kindReply);
    screen->waitForBackground("Wardlock", onLight);
    EXPECT_LT(screen->lineWith("Find"), 0) << screen->screen();
    EXPECT_LT(screen->lineWith("rgb"), 0) << screen->screen();
}

TEST_F(FullScreenGround, IsUnknownAfterGarbage) {
    environment.set("COLORFGBG", "0;15");
    for (const std::string garbage : {"\x1B]11;garbage\x07", "\x1B]11;rgb:zz/zz/zz\x1B\\", "\x1B]11;\x07",
                                      "\x1B]11;rgb:", "\x1B]11;unended"}) {
        SCOPED_TRACE(garbage.substr(1));
        const auto screen = openUntilAsked();
        screen->type(garbage + kindReply);
        expectWhole(*screen, onLight);
    }
}

TEST_F(FullScreenGround, LeavesKeysBeforeAndAfterTheReplyToThePage) {
    const auto screen = openUntilAsked();
    screen->type(std::string("j") + lightReply + down + kindReply + "j");
    screen->waitUntil([&] { return screen->lineWith("+ Add") >= 0; }, "the page");
    screen->type("k");
    screen->type("k");
    screen->waitForBackground("Passcode", onLight);
    EXPECT_EQ(screen->cellAt("Enabled").background, "default");
}

TEST_F(FullScreenGround, LeavesEveryKeyToThePageWhereNothingIsReplied) {
    writeAccounts({"Ann"});
    const auto screen = openInSilence();
    screen->type(down);
    screen->waitForBackground("Passcode", onOther);
    screen->type(escape);
    screen->waitUntilGone("Passcode");
    screen->type("\r");
    screen->waitFor("Passcode");
    screen->click(screen->lineWith("Ann"), 4);
    screen->waitFor("‹ Wardlock");
    tap(*screen, "Account Name");
    screen->type("\x1B[200~e\x1B[201~\r");
    screen->waitFor("Anne");
}

TEST_F(FullScreenGround, IsFollowedInTwentyFourBits) {
    environment.set("COLORTERM", "truecolor");
    const auto screen = openInSilence();
    screen->waitForBackground("Enabled", "#1f5faf");
    screen->type(lightReply);
    expectWhole(*screen, "#cfe3ff");
}

TEST_F(FullScreenGround, IsFollowedInEightColours) {
    environment.set("TERM", "xterm");
    const auto screen = openInSilence();
    waitForLink(*screen, "index 6");
    screen->type(lightReply);
    waitForLink(*screen, "index 4");
    expectWhole(*screen, "index 4");
}

TEST_F(FullScreenGround, LeavesNoReplyToTheNextProgram) {
    ScreenProcess screen("/bin/sh",
                         {"-c", "\"$0\" settings; echo next; read -r line; echo \"got<$line>\"", command});
    screen.keepSilent();
    screen.waitFor("? help");
    screen.type(std::string("q") + lightReply + kindReply);
    screen.waitFor("next");
    screen.type("typed\n");
    screen.waitFor("got<typed>");
}

} // namespace
} // namespace wardlock::test
