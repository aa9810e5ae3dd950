#pragma once

#include "cli/fullscreen/Role.h"
#include "cli/fullscreen/TerminalTraits.h"

#include <array>
#include <cstdint>

namespace wardlock::cli {

/// A colour as 0xRRGGBB, or the terminal's own.
using Rgb = std::int32_t;
inline constexpr Rgb ownColour = -1;

/// How one role looks.
struct Look {
    Rgb foreground = ownColour;
    Rgb background = ownColour;
    /// The colours of terminals that have sixteen, or eight: 0 to 7, or -1 for the terminal's own.
    short foreground8 = -1;
    short background8 = -1;
    bool bold = false;
    bool dim = false;
    /// With colours it is distinguished by them; without, by this.
    bool reverseWithoutColours = false;
    bool underlineWithoutColours = false;
};

/// Returns how the roles look on that ground. On an unknown one they are legible on black and on white.
std::array<Look, roleCount> looksOn(Ground ground);

/// Returns the nearest colour that every terminal of 256 colours has: 16 to 255.
short paletteColour(Rgb colour);

} // namespace wardlock::cli
