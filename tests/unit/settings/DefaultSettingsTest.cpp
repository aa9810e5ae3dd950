#include "settings/DefaultSettings.h"

#include "platform/values/Value.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

using namespace wardlock;
using platform::Array;
using platform::Dictionary;
using platform::Value;

namespace {

using Entries = std::vector<std::pair<std::string, Value>>;

Entries entries(const Dictionary& dictionary) {
    Entries all;
    for (const auto& [key, value] : dictionary)
        all.emplace_back(key, value);
    return all;
}

Dictionary defaultAccount() {
    return DefaultSettings().find("kAccounts")->array().at(0).dictionary();
}

const Array nineApplications{
    "com.apple.facetime",    "com.apple.mobilephone", "com.apple.MobileSMS",
    "com.apple.mobilenotes", "com.apple.mobilemail",  "com.apple.AppStore",
    "com.apple.VoiceMemos",  "com.apple.Passbook",    "com.apple.MobileStore",
};

} // namespace

TEST(DefaultSettings, HaveTheThreeTopLevelKeysInOrder) {
    const Dictionary defaults = DefaultSettings();
    const Entries expected{{"kEnabled", true}, {"kPasscode", ""}, {"kAccounts", Array{defaultAccount()}}};
    EXPECT_EQ(entries(defaults), expected);
}

TEST(DefaultSettings, HaveOneAccountOfTwentyKeysInOrder) {
    const Entries expected{
        {"kAccountEnabled", false},
        {"kAccountName", "Default"},
        {"kPasscodeDisabled", true},
        {"kHideApps", false},
        {"kRestrictUninstall", true},
        {"kRestrictDrag", true},
        {"kRestrictEdit", true},
        {"kRestrictCC", true},
        {"kRestrictNC", true},
        {"kRestrictSwitcher", false},
        {"kRestrictSwitcherContacts", true},
        {"kRestrictCamera", false},
        {"kRestrictVideo", false},
        {"kRestrictSiri", false},
        {"kRestrictKeyboard", false},
        {"kRestrictResponders", false},
        {"kRestrictVolume", false},
        {"kRestrictVibrate", false},
        {"kRestrictPowerDown", false},
        {"kAppsRestricted", nineApplications},
    };
    EXPECT_EQ(entries(defaultAccount()), expected);
    EXPECT_EQ(expected.size(), 20U);
}

TEST(DefaultSettings, RestrictNineApplicationsInOrder) {
    const Array applications = defaultAccount().find("kAppsRestricted")->array();
    EXPECT_EQ(applications.size(), 9U);
    EXPECT_EQ(applications, nineApplications);
}

TEST(DefaultSettings, HaveAnEmptyPasscodeAsAString) {
    const Dictionary defaults = DefaultSettings();
    const Value* passcode = defaults.find("kPasscode");
    ASSERT_TRUE(passcode);
    ASSERT_TRUE(passcode->is(Value::Kind::String));
    EXPECT_EQ(passcode->string(), "");
}

TEST(DefaultSettings, AreDistinctObjectsAtEachCall) {
    const Dictionary first = DefaultSettings();
    const Dictionary second = DefaultSettings();
    EXPECT_EQ(first, second);
    EXPECT_FALSE(first.isSameObject(second));
    const Array& firstAccounts = first.find("kAccounts")->array();
    const Array& secondAccounts = second.find("kAccounts")->array();
    EXPECT_FALSE(firstAccounts.isSameObject(secondAccounts));
    const Dictionary& firstAccount = firstAccounts.at(0).dictionary();
    const Dictionary& secondAccount = secondAccounts.at(0).dictionary();
    EXPECT_FALSE(firstAccount.isSameObject(secondAccount));
    EXPECT_FALSE(firstAccount.find("kAppsRestricted")
                     ->array()
                     .isSameObject(secondAccount.find("kAppsRestricted")->array()));
}

TEST(DefaultSettings, AreLeftUntouchedByChangesToAMutableCopy) {
    const Dictionary before = DefaultSettings();
    platform::MutableDictionary copy(before);
    copy.set("kEnabled", false);
    platform::MutableArray accounts(before.find("kAccounts")->array());
    accounts.remove(0);
    copy.set("kAccounts", accounts.copy());

    EXPECT_TRUE(before.find("kEnabled")->boolean());
    EXPECT_EQ(before.find("kAccounts")->array().size(), 1U);
    EXPECT_EQ(DefaultSettings(), before);
}
