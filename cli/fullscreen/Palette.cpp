#include "cli/fullscreen/Palette.h"

#include <cstdlib>
#include <limits>

namespace wardlock::cli {

namespace {

enum Colour8 : short { Black, Red, Green, Yellow, Blue, Magenta, Cyan, White };

/// The colours of one ground.
struct Colours {
    Rgb faint;
    Rgb link;
    Rgb on;
    Rgb danger;
    Rgb cursorText;
    Rgb cursor;
    Rgb fieldText;
    Rgb field;
    short link8;
};

constexpr Colours onDark{0x98989F, 0x64A8FF, 0x3DD468, 0xFF6B60, 0xFFFFFF,
                         0x0A4F9E, 0xFFFFFF, 0x3A3A3C, Cyan};
constexpr Colours onLight{0x68686E, 0x0A5BC4, 0x197A33, 0xC1121F, 0x000000,
                          0xCFE3FF, 0x000000, 0xE5E5EA, Blue};
constexpr Colours onAny{0x808080, 0x2480E8, 0x1E9444, 0xE0403A, 0xFFFFFF, 0x1F5FAF, 0xFFFFFF, 0x4A4A4E, Cyan};

/// Channels of the colour cube of 256 colours.
constexpr std::array<int, 6> cube{0, 95, 135, 175, 215, 255};

int channel(Rgb colour, int shift) {
    return (colour >> shift) & 0xFF;
}

int distance(Rgb colour, int red, int green, int blue) {
    const int r = channel(colour, 16) - red;
    const int g = channel(colour, 8) - green;
    const int b = channel(colour, 0) - blue;
    return r * r + g * g + b * b;
}

int nearestStep(int channel) {
    int nearest = 0;
    for (int step = 1; step < static_cast<int>(cube.size()); ++step)
        if (std::abs(cube[step] - channel) < std::abs(cube[nearest] - channel))
            nearest = step;
    return nearest;
}

} // namespace

std::array<Look, roleCount> looksOn(Ground ground) {
    const Colours& in = ground == Ground::Dark ? onDark : ground == Ground::Light ? onLight : onAny;
    std::array<Look, roleCount> looks{};
    const auto look = [&](Role role) -> Look& { return looks[static_cast<std::size_t>(role)]; };
    look(Role::Title) = {.bold = true};
    look(Role::Faint) = {.foreground = in.faint, .dim = true};
    look(Role::Link) = {.foreground = in.link, .foreground8 = in.link8};
    look(Role::On) = {.foreground = in.on, .foreground8 = Green};
    look(Role::Danger) = {.foreground = in.danger, .foreground8 = Red};
    look(Role::Cursor) = {.foreground = in.cursorText,
                          .background = in.cursor,
                          .foreground8 = White,
                          .background8 = Blue,
                          .reverseWithoutColours = true};
    look(Role::Field) = {.foreground = in.fieldText,
                         .background = in.field,
                         .foreground8 = Black,
                         .background8 = Cyan,
                         .underlineWithoutColours = true};
    look(Role::Notice) = {.foreground = in.cursorText,
                          .background = in.cursor,
                          .foreground8 = White,
                          .background8 = Blue,
                          .bold = true,
                          .reverseWithoutColours = true};
    return looks;
}

short paletteColour(Rgb colour) {
    const int red = nearestStep(channel(colour, 16));
    const int green = nearestStep(channel(colour, 8));
    const int blue = nearestStep(channel(colour, 0));
    int nearest = 16 + 36 * red + 6 * green + blue;
    int least = distance(colour, cube[red], cube[green], cube[blue]);
    for (int grey = 0; grey < 24; ++grey) {
        const int level = 8 + 10 * grey;
        if (const int away = distance(colour, level, level, level); away < least) {
            least = away;
            nearest = 232 + grey;
        }
    }
    return static_cast<short>(nearest);
}

} // namespace wardlock::cli
