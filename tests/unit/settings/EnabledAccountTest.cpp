#include "settings/EnabledAccount.h"

#include "settings/DefaultSettings.h"
#include "settings/Keys.h"
#include "settings/Settings.h"
#include "tests/support/SettingsFixture.h"

#include <gtest/gtest.h>

#include <vector>

using namespace wardlock;
using platform::Array;
using platform::Dictionary;
using platform::Value;

namespace {

class EnabledAccountRecord : public test::SettingsFixture {
protected:
    void writeAccounts(const Value& accounts) {
        writeDocument({{"kEnabled", true}, {"kPasscode", ""}, {"kAccounts", accounts}});
    }

    const Dictionary& cachedAccount(std::size_t index) {
        return TweakSettings->find("kAccounts")->array().at(index).dictionary();
    }
};

} // namespace

TEST_F(EnabledAccountRecord, IsAbsentFromTheDefaultDocument) {
    EXPECT_FALSE(AccountEnabled());
    EXPECT_TRUE(boolForKey("kEnabled"));
    EXPECT_FALSE(TweakEnabled());
    const Dictionary account = DefaultSettings().find("kAccounts")->array().at(0).dictionary();
    for (const auto& [key, value] : account) {
        EXPECT_FALSE(AccountBool(key)) << key;
        EXPECT_EQ(AccountObject(key), nullptr) << key;
    }
}

TEST_F(EnabledAccountRecord, IsTheFirstOfSeveral) {
    writeDocument(documentWithAccounts({false, true, true}));
    const auto account = EnabledAccountNew();
    ASSERT_TRUE(account);
    EXPECT_EQ(*account->find("kAccountName"), Value("B"));
}

TEST_F(EnabledAccountRecord, IsTheRecordInTheCacheItself) {
    writeDocument(documentWithAccounts({false, true}));
    EXPECT_TRUE(EnabledAccountNew()->isSameObject(cachedAccount(1)));
    EXPECT_TRUE(EnabledAccountFetchIfNecessary()->isSameObject(cachedAccount(1)));
    EXPECT_TRUE(EnabledAccount->isSameObject(cachedAccount(1)));
}

TEST_F(EnabledAccountRecord, LeavesTheVariableAloneOnANewSearch) {
    writeDocument(documentWithAccounts({true}));
    EXPECT_TRUE(EnabledAccountNew());
    EXPECT_FALSE(EnabledAccount);
}

TEST_F(EnabledAccountRecord, IsAbsentWhenTheListIsEmpty) {
    writeAccounts(Array{});
    EXPECT_FALSE(EnabledAccountNew());
}

TEST_F(EnabledAccountRecord, IsAbsentWhenTheListIsGone) {
    SettingsCreateIfNecessary().remove("kAccounts");
    EXPECT_FALSE(EnabledAccountNew());
}

TEST_F(EnabledAccountRecord, IsAbsentWhenTheListIsOfAnotherKind) {
    for (const Value& accounts :
         {Value("accounts"), Value(true), Value(Dictionary{{"kAccountEnabled", true}})}) {
        writeAccounts(accounts);
        TweakSettings.reset();
        EXPECT_FALSE(EnabledAccountNew());
    }
}

TEST_F(EnabledAccountRecord, FollowsElementsThatAreNotRecords) {
    writeAccounts(
        Array{"text", true, Array{true}, Dictionary{{"kAccountEnabled", true}, {"kAccountName", "Real"}}});
    EXPECT_EQ(*AccountObject("kAccountName"), Value("Real"));
}

TEST_F(EnabledAccountRecord, FollowsRecordsWithoutTheEnabledKey) {
    writeAccounts(Array{Dictionary{{"kAccountName", "Silent"}},
                        Dictionary{{"kAccountEnabled", 1}, {"kAccountName", "By number"}}});
    EXPECT_EQ(*AccountObject("kAccountName"), Value("By number"));
}

TEST_F(EnabledAccountRecord, IsFetchedByEveryAccessor) {
    writeDocument(documentWithAccounts({true}));
    const std::vector<void (*)()> accessors{
        [] { AccountObject("kAccountName"); },
        [] { AccountBool("kAccountName"); },
        [] { AccountFloat("kAccountName"); },
        [] { AccountString("kAccountName"); },
        [] { AccountEnabled(); },
        [] { TweakEnabled(); },
        [] { EnabledAccountFetchIfNecessary(); },
    };
    for (const auto accessor : accessors) {
        EnabledAccount.reset();
        accessor();
        EXPECT_TRUE(EnabledAccount);
    }
}

TEST_F(EnabledAccountRecord, IsKeptOnceFoundEvenIfTheCacheChanges) {
    writeDocument(documentWithAccounts({true, true}));
    EXPECT_EQ(*AccountObject("kAccountName"), Value("A"));
    SettingsCreateIfNecessary().set("kAccounts", Array{});
    EXPECT_EQ(*AccountObject("kAccountName"), Value("A"));
    EXPECT_TRUE(AccountEnabled());
}

TEST_F(EnabledAccountRecord, IsSearchedForAgainWhileThereIsNone) {
    EXPECT_FALSE(AccountEnabled());
    SettingsCreateIfNecessary().set("kAccounts",
                                    Array{Dictionary{{"kAccountEnabled", true}, {"kAccountName", "Late"}}});
    EXPECT_TRUE(AccountEnabled());
    EXPECT_EQ(*AccountString("kAccountName"), Value("Late"));
}

TEST_F(EnabledAccountRecord, StaysValidWhateverBecomesOfTheCache) {
    writeDocument(documentWithAccounts({true}));
    AccountEnabled();
    TweakSettings.reset();
    EXPECT_EQ(*EnabledAccount->find("kAccountName"), Value("A"));
}

TEST_F(EnabledAccountRecord, DoesNotFallBackToTheDefaults) {
    writeAccounts(Array{Dictionary{{"kAccountEnabled", true}}});
    EXPECT_TRUE(
        DefaultSettings().find("kAccounts")->array().at(0).dictionary().find(kRestrictUninstall)->boolean());
    EXPECT_FALSE(AccountBool("kRestrictUninstall"));
    EXPECT_EQ(AccountFloat("kRestrictUninstall"), 0.0F);
    EXPECT_EQ(AccountObject("kRestrictUninstall"), nullptr);
    EXPECT_EQ(AccountString("kRestrictUninstall"), nullptr);
}

TEST_F(EnabledAccountRecord, ReturnsItsValues) {
    writeAccounts(Array{Dictionary{
        {"kAccountEnabled", true}, {"kRestrictSiri", true}, {"kAccountName", "Mia"}, {"level", "2.5"}}});
    EXPECT_TRUE(AccountBool("kRestrictSiri"));
    EXPECT_EQ(AccountFloat("level"), 2.5F);
    EXPECT_EQ(*AccountString("kAccountName"), Value("Mia"));
    EXPECT_EQ(*AccountString("kRestrictSiri"), Value(true));
}

TEST_F(EnabledAccountRecord, ReadsValuesOfOtherKindsAsBooleansAsThePlatformDoes) {
    writeAccounts(Array{Dictionary{{"kAccountEnabled", true},
                                   {"one", 1},
                                   {"minus", -1},
                                   {"half", 0.5},
                                   {"yes", "YES"},
                                   {"true", "true"},
                                   {"digit", " 7"},
                                   {"zero", 0},
                                   {"real zero", 0.0},
                                   {"no", "NO"},
                                   {"digit zero", "0"},
                                   {"empty", ""},
                                   {"list", Array{true}},
                                   {"record", Dictionary{{"x", true}}},
                                   {"data", Value::data("1")},
                                   {"date", Value::date(1)}}});
    for (const char* key : {"one", "minus", "half", "yes", "true", "digit"})
        EXPECT_TRUE(AccountBool(key)) << key;
    for (const char* key :
         {"zero", "real zero", "no", "digit zero", "empty", "list", "record", "data", "date"})
        EXPECT_FALSE(AccountBool(key)) << key;
}

TEST_F(EnabledAccountRecord, ReadsRespondersAsFalseInANewRecord) {
    platform::MutableDictionary record(DefaultSettings().find("kAccounts")->array().at(0).dictionary());
    record.set("kAccountEnabled", true);
    writeAccounts(Array{record.copy()});
    ASSERT_TRUE(AccountObject("kRestrictResponders"));
    EXPECT_FALSE(AccountBool("kRestrictResponders"));
}

TEST_F(EnabledAccountRecord, IsNotSearchedForWhileTheExtensionIsSwitchedOff) {
    writeDocument({{"kEnabled", false},
                   {"kPasscode", ""},
                   {"kAccounts", Array{Dictionary{{"kAccountEnabled", true}}}}});
    EXPECT_FALSE(TweakEnabled());
    EXPECT_FALSE(EnabledAccount);
    EXPECT_TRUE(AccountEnabled());
    EXPECT_FALSE(TweakEnabled());
}

TEST_F(EnabledAccountRecord, StaysFoundWhenTheExtensionIsSwitchedOff) {
    writeDocument(documentWithAccounts({true}));
    EXPECT_TRUE(TweakEnabled());
    SettingsCreateIfNecessary().set("kEnabled", false);
    EXPECT_FALSE(TweakEnabled());
    EXPECT_TRUE(EnabledAccount);
}

TEST_F(EnabledAccountRecord, CountsWhileTheExtensionIsEnabled) {
    writeDocument(documentWithAccounts({true}));
    EXPECT_TRUE(TweakEnabled());
}
