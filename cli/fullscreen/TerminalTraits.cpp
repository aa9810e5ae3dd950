#include "cli/fullscreen/TerminalTraits.h"

#include "cli/io/Terminal.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <string_view>
#include <termios.h>
#include <unistd.h>

namespace wardlock::cli {

namespace {

std::string_view variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// The first that is set decides, as for the C library.
std::string_view localeOfCharacters() {
    for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (const auto value = variable(name); !value.empty())
            return value;
    return {};
}

bool namesUtf8(std::string_view locale) {
    std::string letters;
    for (const char byte : locale)
        if (byte != '-')
            letters += byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
    return letters.find("utf8") != std::string::npos;
}

bool editsUtf8() {
    termios modes{};
    return tcgetattr(STDIN_FILENO, &modes) == 0 && (modes.c_iflag & IUTF8) != 0;
}

bool usesUtf8() {
    const std::string_view locale = localeOfCharacters();
    return locale.empty() ? editsUtf8() : namesUtf8(locale);
}

ColourDepth wantedDepth() {
    if (!variable("NO_COLOR").empty())
        return ColourDepth::None;
    const std::string_view depth = variable("COLORTERM");
    return depth == "truecolor" || depth == "24bit" ? ColourDepth::Full : ColourDepth::Palette;
}

/// The last number of COLORFGBG is the background's place in the sixteen colours.
Ground groundOf(std::string_view colours) {
    const std::string_view last = colours.substr(colours.rfind(';') + 1);
    int colour = -1;
    const auto [end, error] = std::from_chars(last.data(), last.data() + last.size(), colour);
    if (error != std::errc() || end != last.data() + last.size() || colour < 0 || colour > 15)
        return Ground::Unknown;
    return colour == 7 || colour > 8 ? Ground::Light : Ground::Dark;
}

} // namespace

TerminalTraits TerminalTraits::ofEnvironment() {
    return {usesUtf8(), wantedDepth(), groundOf(variable("COLORFGBG"))};
}

bool isCapableTerminal() {
    const std::string_view name = variable("TERM");
    return Terminal::readsInput() && Terminal::showsOutput() && !name.empty() && name != "dumb";
}

} // namespace wardlock::cli
