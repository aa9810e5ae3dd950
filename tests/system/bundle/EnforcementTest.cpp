// The product's one request, end to end and in two processes: a parent restricts something for an account,
// and the enforcing process knows.

#include "platform/runtime/CFNotificationCenterClass.h"
#include "settings/Keys.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/Process.h"
#include "tests/support/SettingsApplicationFixture.h"
#include "tests/support/TestBus.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

using platform::Dictionary;
using platform::Value;

/// Settings in this process over the real centre, and a process that enforces.
class Enforcement : public SettingsApplicationFixture {
protected:
    Enforcement() {
        environment.set("DBUS_SESSION_BUS_ADDRESS", bus.address());
        platform::CFNotificationCenter::setCurrent(nullptr);
    }

    /// Two accounts of which the second is enabled.
    static Dictionary twoAccounts() {
        platform::MutableDictionary document(documentOf({"Ann", "Ben"}));
        platform::MutableArray accounts(document.find(kAccounts)->array());
        platform::MutableDictionary second(accounts.at(1).dictionary());
        second.set(kAccountEnabled, Value(true));
        accounts.replace(1, Value(second.copy()));
        document.set(kAccounts, Value(accounts.copy()));
        return document.copy();
    }
    void open() {
        start();
        tap("Wardlock");
    }

    TestBus bus;
};

/// An enforcing process that has registered and loaded; it ends after so many changes.
std::unique_ptr<Process> enforce(int changes, const std::string& key) {
    auto enforcer = std::make_unique<Process>(programFolder() + "/test-enforcer",
                                              std::vector<std::string>{std::to_string(changes), key});
    EXPECT_EQ(enforcer->readLine(), "ready");
    return enforcer;
}

TEST_F(Enforcement, IsNotifiedOfSiriBeingRestrictedForTheSecondAccount) {
    writeDocument(twoAccounts());
    const auto enforcer = enforce(1, "kRestrictSiri");
    open();
    tap("Ben");
    tap("Siri");
    EXPECT_EQ(enforcer->readLine(), "kRestrictSiri = 1; account Ben; tweak 1; kRestrictSiri 1");
    EXPECT_EQ(enforcer->wait().exitCode, 0);
}

TEST_F(Enforcement, IsNotifiedOfAnotherAccountBeingEnabledAndReadsFromIt) {
    writeDocument(twoAccounts());
    const auto enforcer = enforce(2, "kRestrictCamera");
    open();
    tap("Ann");
    tap("Camera");
    EXPECT_EQ(enforcer->readLine(), "kRestrictCamera = 1; account Ben; tweak 1; kRestrictCamera 0");
    tap("Enabled");
    EXPECT_EQ(enforcer->readLine(), "kAccountEnabled = 1; account Ann; tweak 1; kRestrictCamera 1");
    EXPECT_EQ(enforcer->wait().exitCode, 0);
}

TEST_F(Enforcement, IsNotifiedOfTheMasterSwitchAndThePasscode) {
    writeDocument(twoAccounts());
    const auto enforcer = enforce(2, "kRestrictSiri");
    open();
    tap("Enabled");
    EXPECT_EQ(enforcer->readLine(), "kEnabled = 0; account Ben; tweak 0; kRestrictSiri 0");
    tap("Passcode");
    press("1234");
    EXPECT_EQ(enforcer->readLine(), "kPasscode = 1234; account Ben; tweak 0; kRestrictSiri 0");
    EXPECT_EQ(enforcer->wait().exitCode, 0);
}

TEST_F(Enforcement, IsNotifiedOfTheEnabledAccountBeingDeleted) {
    writeDocument(twoAccounts());
    const auto enforcer = enforce(1, "kRestrictSiri");
    open();
    tap("Ben");
    tap("Delete Account");
    chooseInAlert("Delete");
    const auto line = enforcer->readLine().value_or("");
    EXPECT_EQ(line.substr(0, 11), "kAccounts =");
    EXPECT_EQ(enforcer->wait().exitCode, 0);
}

} // namespace
} // namespace wardlock::test
