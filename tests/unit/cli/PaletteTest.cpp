#include "cli/fullscreen/Palette.h"

#include <gtest/gtest.h>

#include <cmath>

namespace wardlock::cli {
namespace {

double luminance(Rgb colour) {
    double sum = 0;
    const double weights[] = {0.2126, 0.7152, 0.0722};
    for (int index = 0; index < 3; ++index) {
        const double part = ((colour >> (16 - 8 * index)) & 0xFF) / 255.0;
        sum += weights[index] * (part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4));
    }
    return sum;
}

double contrast(Rgb first, Rgb second) {
    const double one = luminance(first) + 0.05;
    const double other = luminance(second) + 0.05;
    return one > other ? one / other : other / one;
}

/// The least contrast between a role's text and what is behind it.
double leastContrast(Ground ground, Rgb behind) {
    double least = 21;
    for (const Look& look : looksOn(ground))
        if (look.foreground != ownColour)
            least = std::min(
                least, contrast(look.foreground, look.background == ownColour ? behind : look.background));
    return least;
}

TEST(Palette, IsLegibleOnItsGround) {
    EXPECT_GE(leastContrast(Ground::Dark, 0x000000), 4.5);
    EXPECT_GE(leastContrast(Ground::Dark, 0x1E1E1E), 4.5);
    EXPECT_GE(leastContrast(Ground::Light, 0xFFFFFF), 4.5);
}

TEST(Palette, IsLegibleOnBlackAndOnWhiteWhereTheGroundIsUnknown) {
    EXPECT_GE(leastContrast(Ground::Unknown, 0x000000), 3.0);
    EXPECT_GE(leastContrast(Ground::Unknown, 0xFFFFFF), 3.0);
}

TEST(Palette, FindsTheNearestOfTwoHundredAndFiftySixColours) {
    EXPECT_EQ(paletteColour(0x000000), 16);
    EXPECT_EQ(paletteColour(0xFFFFFF), 231);
    EXPECT_EQ(paletteColour(0xFF0000), 196);
    EXPECT_EQ(paletteColour(0x5F87AF), 67);
    EXPECT_EQ(paletteColour(0x808080), 244);
}

} // namespace
} // namespace wardlock::cli
