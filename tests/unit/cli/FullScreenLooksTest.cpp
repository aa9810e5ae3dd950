#include "tests/unit/cli/FullScreenFixture.h"

#include <algorithm>
#include <string>

namespace wardlock::test {
namespace {

class FullScreenLooks : public FullScreenFixture {
protected:
    /// Whether the program has asked for a colour: a sequence "CSI ... m" with a number from 30 on.
    static bool asksForColours(const std::string& output) {
        for (std::size_t start = output.find("\x1B["); start != std::string::npos;
             start = output.find("\x1B[", start + 1)) {
            const std::size_t last = output.find_first_not_of("0123456789;:", start + 2);
            if (last == std::string::npos || output[last] != 'm')
                continue;
            std::size_t number = 0;
            for (std::size_t at = start + 2; at < last; ++at) {
                number = std::isdigit(static_cast<unsigned char>(output[at]))
                             ? number * 10 + static_cast<std::size_t>(output[at] - '0')
                             : 0;
                if (number >= 30)
                    return true;
            }
        }
        return false;
    }
};

TEST_F(FullScreenLooks, ShowsRolesInColours) {
    const auto screen = open();
    screen->type("j");
    screen->waitForBackground("Passcode", "index 25");
    EXPECT_EQ(screen->cellAt("‹").foreground, "index 32");
    EXPECT_EQ(screen->cellAt("on ━━●").foreground, "index 29");
    EXPECT_EQ(screen->cellAt("Enabled").foreground, "default");
    EXPECT_TRUE(screen->cellAt("Wardlock").bold);
}

TEST_F(FullScreenLooks, FollowsTheGround) {
    environment.set("COLORFGBG", "0;15");
    const auto light = open();
    light->waitForBackground("Enabled", "index 189");
    environment.set("COLORFGBG", "15;0");
    const auto dark = open();
    dark->waitForBackground("Enabled", "index 25");
    EXPECT_NE(light->cellAt("‹").foreground, dark->cellAt("‹").foreground);
}

TEST_F(FullScreenLooks, UsesColoursOfTwentyFourBitsWhereTheTerminalHasThem) {
    environment.set("COLORTERM", "truecolor");
    environment.set("COLORFGBG", "15;0");
    const auto screen = open();
    screen->waitForBackground("Enabled", "#0a4f9e");
    EXPECT_EQ(screen->cellAt("Enabled").foreground, "#ffffff");
    EXPECT_EQ(screen->cellAt("‹").foreground, "#64a8ff");
    environment.set("TERM", "xterm");
    const auto few = open();
    few->waitForBackground("Enabled", "index 4");
}

TEST_F(FullScreenLooks, UsesNoColourWhereNoneIsWanted) {
    environment.set("NO_COLOR", "1");
    const auto screen = open();
    EXPECT_TRUE(screen->cellAt("Enabled").reverse) << "the cursor";
    EXPECT_FALSE(screen->cellAt("Passcode").reverse);
    EXPECT_FALSE(asksForColours(screen->output()));
}

TEST_F(FullScreenLooks, UsesTheColoursOfATerminalWithEight) {
    environment.set("TERM", "xterm");
    const auto screen = open();
    screen->type("j");
    screen->waitForBackground("Passcode", "index 4");
    EXPECT_EQ(screen->cellAt("on ━━●").foreground, "index 2");
}

TEST_F(FullScreenLooks, UsesNoColourOfATerminalWithoutAny) {
    environment.set("TERM", "vt100");
    const auto screen = open();
    EXPECT_TRUE(screen->cellAt("Enabled").reverse);
    EXPECT_FALSE(asksForColours(screen->output()));
}

TEST_F(FullScreenLooks, DrawsWithAsciiOnATerminalWithoutUtf8) {
    environment.set("LC_ALL", "C");
    // The emulator mistakes the end of a line that is written by repetition.
    environment.set("TERM", "tmux-256color");
    writeAccounts({"Jürgen", "中文"});
    const auto screen = open();
    screen->waitForLine(0, "  < Settings                        Wardlock                             + Add");
    screen->waitForLine(1, std::string(80, '-'));
    screen->waitForLine(3, "  Enabled                                                              on [x]");
    screen->waitForLine(10, "  J?rgen                                                                    >");
    screen->waitForLine(11, "  ????                                                                      >");
    screen->type("+");
    screen->waitFor("New Account Name");
    EXPECT_TRUE(std::ranges::none_of(screen->output(), [](char byte) { return (byte & 0x80) != 0; }));
}

TEST_F(FullScreenLooks, TakesUtf8WhereNoLocaleIsSetAndTheTerminalEditsIt) {
    environment.unset("LC_ALL");
    environment.unset("LC_CTYPE");
    environment.unset("LANG");
    ScreenProcess ascii(command, words());
    ascii.waitFor("< Settings");
    ScreenProcess utf8("/bin/sh", {"-c", "stty iutf8; exec \"$0\" settings", command});
    utf8.waitFor("‹ Settings");
}

TEST_F(FullScreenLooks, LeavesLineByLineToDumbTerminals) {
    environment.set("TERM", "dumb");
    TerminalProcess dumb(command, words());
    EXPECT_EQ(dumb.waitFor("q quit: ").find('\x1B'), std::string::npos);
    environment.unset("TERM");
    TerminalProcess none(command, words());
    none.waitFor("q quit: ");
    environment.set("TERM", "no-such-terminal");
    TerminalProcess unknown(command, words());
    unknown.waitFor("q quit: ");
}

} // namespace
} // namespace wardlock::test
