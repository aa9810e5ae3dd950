#include "platform/services/DeviceInformation.h"
#include "settings/DeviceHelpers.h"
#include "tests/unit/window/WindowFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {

using platform::DeviceInformation;
class WindowScreen : public WindowFixture {
protected:
    static bool isSoon(platform::CGSize size) {
        return until([size] { return screenSize() == size; });
    }
};

TEST_F(WindowScreen, SetsTheScreenSizeOfTheDevice) {
    open(0, {1024, 768});
    EXPECT_TRUE(isSoon({1024, 768}));
    EXPECT_TRUE(isLandscape());
}

TEST_F(WindowScreen, ChangesTheScreenSizeOfTheDeviceWhenResized) {
    open();
    window().resize(500, 900);
    EXPECT_TRUE(isSoon({500, 900}));
    EXPECT_FALSE(isLandscape());
}

TEST_F(WindowScreen, RequestsPicturesNoCoarserThanADevices) {
    platform::setScreenScale(1);
    open();
    ASSERT_EQ(window().devicePixelRatio(), 1);
    EXPECT_EQ(DeviceInformation::current().screenScale(), 2);
}

} // namespace wardlock::test
