#include "cli/fullscreen/CursesLooks.h"

#include "cli/fullscreen/DirectColours.h"

#include <array>
// Last: it defines macros.
#define NCURSES_NOMACROS 1
#include <curses.h>

namespace wardlock::cli {

namespace {

struct Attributes {
    attr_t attributes = A_NORMAL;
    short pair = 0;
};

std::array<Attributes, roleCount> attributes;
/// Of the terminal that was taken.
ColourDepth depth = ColourDepth::None;

ColourDepth depthOfTerminal(ColourDepth wanted) {
    if (wanted == ColourDepth::None || !has_colors() || start_color() == ERR || COLORS < 8)
        return ColourDepth::None;
    use_default_colors();
    return COLORS >= 256 ? wanted : ColourDepth::Sixteen;
}

/// Returns the number of a colour of the terminal.
short numberOf(Rgb colour, short direct) {
    if (colour == ownColour)
        return -1;
    return depth == ColourDepth::Full ? direct : paletteColour(colour);
}

Attributes withColours(const Look& look, std::size_t role, Ground ground) {
    const auto pair = static_cast<short>(role + 1);
    const bool few = depth == ColourDepth::Sixteen;
    init_pair(pair, few ? look.foreground8 : numberOf(look.foreground, directForeground(ground, role)),
              few ? look.background8 : numberOf(look.background, directBackground(ground, role)));
    // Few colours have no grey: half bright text replaces it.
    return {(look.bold ? A_BOLD : A_NORMAL) | (few && look.dim ? A_DIM : A_NORMAL), pair};
}

Attributes withoutColours(const Look& look) {
    return {(look.bold ? A_BOLD : A_NORMAL) | (look.dim ? A_DIM : A_NORMAL) |
                (look.reverseWithoutColours ? A_REVERSE : A_NORMAL) |
                (look.underlineWithoutColours ? A_UNDERLINE : A_NORMAL),
            0};
}

} // namespace

bool setLooks(const TerminalTraits& traits) {
    depth = depthOfTerminal(traits.depth);
    setGround(traits.ground);
    return depth != ColourDepth::None;
}

void setGround(Ground ground) {
    const auto looks = looksOn(ground);
    for (std::size_t role = 0; role < looks.size(); ++role)
        attributes[role] =
            depth == ColourDepth::None ? withoutColours(looks[role]) : withColours(looks[role], role, ground);
}

void useLook(Role role) {
    const Attributes& look = attributes[static_cast<std::size_t>(role)];
    attr_set(look.attributes, look.pair, nullptr);
}

} // namespace wardlock::cli
