#include "linux/system/LinuxDeviceInformation.h"

#include <gtest/gtest.h>

#include <string>
#include <sys/utsname.h>

using namespace platform;
using namespace platform::system;

TEST(LinuxDeviceInformation, IsAPhoneInPortraitUntilAHostChangesIt) {
    LinuxDeviceInformation device;
    EXPECT_EQ(device.userInterfaceIdiom(), 0);
    EXPECT_EQ(device.screenBounds(), (CGRect{{0, 0}, {390, 844}}));
    EXPECT_EQ(device.statusBarOrientation(), 1);
}

TEST(LinuxDeviceInformation, IsInLandscapeWhereItIsWiderThanHigh) {
    LinuxDeviceInformation device;
    device.becomeScreenSize({844, 390});
    EXPECT_EQ(device.statusBarOrientation(), 3);
    device.becomeScreenSize({500, 500});
    EXPECT_EQ(device.statusBarOrientation(), 1);
}

TEST(LinuxDeviceInformation, NamesTheMachineAsUnameDoes) {
    LinuxDeviceInformation device;
    utsname names{};
    ASSERT_EQ(uname(&names), 0);
    EXPECT_EQ(device.machine(), names.machine);
}

TEST(LinuxDeviceInformation, ReturnsAVersionOfTheSystem) {
    LinuxDeviceInformation device;
    EXPECT_FALSE(device.systemVersion().empty());
}

TEST(ReleaseVersion, IsTheUnquotedVersionId) {
    EXPECT_EQ(versionInRelease("NAME=\"Some System\"\nVERSION_ID=\"12\"\nVERSION=\"12 (name)\"\n"), "12");
    EXPECT_EQ(versionInRelease("VERSION_ID='12.5'"), "12.5");
    EXPECT_EQ(versionInRelease("VERSION_ID=39\n"), "39");
}

TEST(ReleaseVersion, IsEmptyWhenTheSystemNamesNoVersion) {
    EXPECT_EQ(versionInRelease(""), "");
    EXPECT_EQ(versionInRelease("NAME=x\nNOT_VERSION_ID=3\n"), "");
    EXPECT_EQ(versionInRelease("VERSION_ID=\n"), "");
}

TEST(DeviceInformation, UsesTheHostsScreenAndIdiom) {
    setScreenSize({1024, 768});
    setUserInterfaceIdiom(UIUserInterfaceIdiomPad);
    DeviceInformation& device = DeviceInformation::current();
    EXPECT_EQ(device.screenBounds().size, (CGSize{768, 1024})) << "the screen is in portrait";
    EXPECT_EQ(device.statusBarOrientation(), UIInterfaceOrientationLandscapeLeft);
    EXPECT_EQ(device.userInterfaceIdiom(), UIUserInterfaceIdiomPad);
}

TEST(DeviceInformation, YieldsToAnotherAndReturns) {
    LinuxDeviceInformation other;
    other.becomeScreenSize({1, 2});
    DeviceInformation::setCurrent(&other);
    EXPECT_EQ(&DeviceInformation::current(), &other);
    DeviceInformation::setCurrent(nullptr);
    EXPECT_NE(&DeviceInformation::current(), &other);
}
