#include "tests/support/DeviceRootFixture.h"

#include <cstdlib>
#include <filesystem>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

class DeviceRoot : public DeviceRootFixture {};

TEST_F(DeviceRoot, OfATestIsPrivateAndNamedByTheEnvironment) {
    EXPECT_EQ(std::getenv("WARDLOCK_DEVICE_ROOT"), root());
    EXPECT_TRUE(exists("/var/mobile/Library/Preferences"));
    EXPECT_EQ(fs::status(std::getenv("XDG_RUNTIME_DIR")).permissions(), fs::perms::owner_all);
    EXPECT_EQ(std::getenv("DBUS_SESSION_BUS_ADDRESS"), nullptr);
}

TEST_F(DeviceRoot, OfATestHoldsWhatWasWritten) {
    writeFile("/var/mobile/x", std::string_view("a\0b", 3));
    EXPECT_EQ(readFile("/var/mobile/x"), std::string_view("a\0b", 3));
    removeFile("/var/mobile/x");
    EXPECT_FALSE(exists("/var/mobile/x"));
}

} // namespace
} // namespace wardlock::test
