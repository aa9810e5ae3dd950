// What the whole library is for: a process that enforces the settings is notified of a change that another
// one made.

#include "platform/runtime/CFNotificationCenterClass.h"
#include "settings/ChangeNotification.h"
#include "settings/Constants.h"
#include "settings/DefaultSettings.h"
#include "settings/Keys.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/Process.h"
#include "tests/support/SettingsFixture.h"
#include "tests/support/TestBus.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

using namespace wardlock;
using platform::Array;
using platform::Dictionary;
using wardlock::test::Process;

namespace {

/// Over the real centre: what a page does after it has written.
class EnforcingProcess : public test::SettingsFixture {
protected:
    EnforcingProcess() {
        environment.set("DBUS_SESSION_BUS_ADDRESS", bus.address());
        platform::CFNotificationCenter::setCurrent(nullptr);
    }

    static Process startEnforcer(int changes) {
        return Process(test::programFolder() + "/test-enforcer", {std::to_string(changes)});
    }

    static void post(std::string_view key, const platform::Value& object) {
        postChange(BundleIdentifier, PostName, key, object);
    }

    test::TestBus bus;
};

} // namespace

TEST_F(EnforcingProcess, CreatesTheDocumentAtItsStart) {
    Process enforcer = startEnforcer(1);
    EXPECT_EQ(enforcer.readLine(), "ready");
    EXPECT_EQ(readDocument(), DefaultSettings());
}

TEST_F(EnforcingProcess, MayBeTheFirstInANewDeviceRoot) {
    std::filesystem::remove_all(root());
    Process enforcer = startEnforcer(1);
    ASSERT_EQ(enforcer.readLine(), "ready");
    EXPECT_EQ(readDocument(), DefaultSettings());
    writeDocument(documentWithAccounts({true}));
    post("kAccountEnabled", true);
    EXPECT_EQ(enforcer.readLine(), "kAccountEnabled = 1; account A; tweak 1");
}

TEST_F(EnforcingProcess, IsNotifiedOfAChangeMadeElsewhere) {
    writeDocument(documentWithAccounts({false, false}));
    Process enforcer = startEnforcer(1);
    ASSERT_EQ(enforcer.readLine(), "ready");
    writeDocument(documentWithAccounts({false, true}));
    post("kAccountEnabled", true);
    EXPECT_EQ(enforcer.readLine(), "kAccountEnabled = 1; account B; tweak 1");
    EXPECT_EQ(enforcer.wait().exitCode, 0);
}

TEST_F(EnforcingProcess, IsNotifiedOfChangesInTheirOrder) {
    writeDocument(documentWithAccounts({true, true}));
    Process enforcer = startEnforcer(3);
    ASSERT_EQ(enforcer.readLine(), "ready");
    post("kRestrictSiri", true);
    post("kPasscode", "0000");
    EXPECT_EQ(enforcer.readLine(), "kRestrictSiri = 1; account A; tweak 1");
    EXPECT_EQ(enforcer.readLine(), "kPasscode = 0000; account A; tweak 1");
    writeDocument({{kEnabled, false}, {kPasscode, "0000"}, {kAccounts, Array{}}});
    post("kEnabled", false);
    EXPECT_EQ(enforcer.readLine(), "kEnabled = 0; account (null); tweak 0");
    EXPECT_EQ(enforcer.wait().exitCode, 0);
}
