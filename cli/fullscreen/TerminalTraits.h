#pragma once

#include <string>

namespace wardlock::cli {

enum class ColourDepth { None, Sixteen, Palette, Full };
enum class Ground { Unknown, Dark, Light };

/// What the environment says about the terminal, besides its description.
struct TerminalTraits {
    bool utf8 = true;
    /// The most colours to use; the terminal's description may have fewer.
    ColourDepth depth = ColourDepth::Palette;
    /// The background; colours that are legible on both are used for an unknown one.
    Ground ground = Ground::Unknown;

    /// Reads LC_ALL, LC_CTYPE, LANG, NO_COLOR, COLORTERM and COLORFGBG. Where no locale is set, the
    /// terminal's line discipline says whether it edits UTF-8.
    static TerminalTraits ofEnvironment();
};

/// Whether standard input and output are one terminal that can show a whole screen: TERM names more than
/// "dumb".
bool isCapableTerminal();

} // namespace wardlock::cli
