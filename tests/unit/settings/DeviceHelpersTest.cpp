#include "settings/DeviceHelpers.h"

#include "tests/unit/settings/CountingDeviceInformation.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace wardlock;
using platform::CGSize;
using wardlock::test::CountingDeviceInformation;

using Questions = std::vector<std::string>;

TEST(IpadIdiom, IsTheTabletIdiomAlone) {
    CountingDeviceInformation device;
    device.idiom = 1;
    EXPECT_TRUE(isIpad());
    for (const long idiom : {-1L, 0L, 2L, 3L, 5L}) {
        device.idiom = idiom;
        EXPECT_FALSE(isIpad()) << idiom;
    }
}

TEST(ScreenSize, EqualsTheBoundsInBothPortraitOrientations) {
    CountingDeviceInformation device;
    for (const long orientation : {1L, 2L}) {
        device.orientations = {orientation};
        EXPECT_EQ(screenSize(), (CGSize{320, 568})) << orientation;
    }
}

TEST(ScreenSize, IsSwappedInEveryOtherOrientation) {
    CountingDeviceInformation device;
    for (const long orientation : {0L, 3L, 4L, 5L, -1L}) {
        device.orientations = {orientation};
        EXPECT_EQ(screenSize(), (CGSize{568, 320})) << orientation;
    }
}

TEST(ScreenSize, ReadsTheBoundsBeforeTheOrientationAndTwiceWhereItSwaps) {
    CountingDeviceInformation device;
    device.orientations = {3};
    screenSize();
    EXPECT_EQ(device.asked, (Questions{"bounds", "orientation", "orientation", "bounds"}));
}

TEST(ScreenSize, ReadsTheBoundsOnceInPortrait) {
    CountingDeviceInformation device;
    screenSize();
    EXPECT_EQ(device.asked, (Questions{"bounds", "orientation"}));
}

TEST(ScreenSize, TakesTheHeightOfTheFirstReadingAndTheWidthOfTheSecond) {
    CountingDeviceInformation device;
    device.orientations = {4};
    device.bounds = {{{}, {320, 568}}, {{}, {768, 1024}}};
    EXPECT_EQ(screenSize(), (CGSize{568, 768}));
}

TEST(ScreenSize, AsksForTheOrientationOnceForEachTest) {
    CountingDeviceInformation device;
    // Turned from landscape to portrait between the two tests: neither finds what it looks for.
    device.orientations = {3, 1};
    EXPECT_EQ(screenSize(), (CGSize{568, 320}));
}

TEST(LandscapeOrientation, IncludesAllButThePortraitOrientations) {
    CountingDeviceInformation device;
    for (const long orientation : {1L, 2L}) {
        device.orientations = {orientation};
        EXPECT_FALSE(isLandscape()) << orientation;
    }
    for (const long orientation : {0L, 3L, 4L, 5L}) {
        device.orientations = {orientation};
        EXPECT_TRUE(isLandscape()) << orientation;
    }
}

TEST(ScreenSize, IsWiderThanHighOnAWideHost) {
    platform::setScreenSize({844, 390});
    EXPECT_TRUE(isLandscape());
    EXPECT_EQ(screenSize(), (CGSize{844, 390}));
    platform::setScreenSize({390, 844});
    EXPECT_FALSE(isLandscape());
    EXPECT_EQ(screenSize(), (CGSize{390, 844}));
}
