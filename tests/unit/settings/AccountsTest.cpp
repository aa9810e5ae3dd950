#include "settings/Accounts.h"

#include "settings/DefaultSettings.h"
#include "settings/Keys.h"
#include "tests/support/SettingsFixture.h"
#include "tests/support/ThrownException.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

using platform::Array;
using platform::Dictionary;
using platform::Value;

Dictionary record(std::string_view name, bool siri = false) {
    return {{kAccountName, name}, {kRestrictSiri, siri}};
}

Accounts list(std::initializer_list<Dictionary> records) {
    platform::MutableArray accounts;
    for (const auto& account : records)
        accounts.append(account);
    return Accounts(accounts.copy());
}

const Dictionary ann = record("Ann");
const Dictionary ben = record("Ben");
const Dictionary eva = record("Eva");

TEST(AccountFate, IsTheSameInAListThatDidNotChange) {
    EXPECT_EQ(list({ann, ben}).fate(1, list({ann, ben})), AccountFate::Same);
}

TEST(AccountFate, IsTheSameWhenOthersAreChangedAddedOrRemovedAfterIt) {
    EXPECT_EQ(list({ann, ben}).fate(1, list({record("Ann", true), ben})), AccountFate::Same);
    EXPECT_EQ(list({ann}).fate(0, list({ann, ben})), AccountFate::Same);
    EXPECT_EQ(list({ann, ben, eva}).fate(1, list({ann, ben})), AccountFate::Same);
}

TEST(AccountFate, IsTheSameWhenItsOwnRecordWasChanged) {
    EXPECT_EQ(list({ann, ben}).fate(1, list({ann, record("Ben", true)})), AccountFate::Same);
    EXPECT_EQ(list({ann, ben}).fate(1, list({ann, record("Renamed")})), AccountFate::Same);
    EXPECT_EQ(list({ann, ben, eva}).fate(0, list({record("Ann", true), ben})), AccountFate::Same)
        << "changed, and another one removed";
}

TEST(AccountFate, IsTheSameWhenItsRecordBecameEqualToAnotherThatStayed) {
    EXPECT_EQ(list({ann, ben}).fate(1, list({ann, ann})), AccountFate::Same);
}

TEST(AccountFate, IsMovedWhenAnEarlierAccountWasRemoved) {
    EXPECT_EQ(list({ann, ben}).fate(1, list({ben})), AccountFate::Moved);
    EXPECT_EQ(list({ann, ben, eva}).fate(1, list({ben, eva})), AccountFate::Moved);
}

TEST(AccountFate, IsMovedWhenTheOrderOrTheBeginningOfTheListChanged) {
    EXPECT_EQ(list({ann, ben}).fate(1, list({ben, ann})), AccountFate::Moved);
    EXPECT_EQ(list({ann, ben}).fate(0, list({eva, ann, ben})), AccountFate::Moved);
}

TEST(AccountFate, IsRemovedWhenItsPositionIsGone) {
    EXPECT_EQ(list({ann, ben}).fate(1, list({ann})), AccountFate::Removed);
    EXPECT_EQ(list({ann}).fate(0, Accounts()), AccountFate::Removed);
    EXPECT_EQ(list({ann}).fate(1, list({ann, ben})), AccountFate::Removed) << "it did not exist";
}

TEST(AccountFate, IsRemovedWhenTheNextAccountTookItsPosition) {
    EXPECT_EQ(list({ann, ben, eva}).fate(1, list({ann, eva})), AccountFate::Removed);
    EXPECT_EQ(list({ann, ben, eva}).fate(1, list({ann, record("Eva", true)})), AccountFate::Removed)
        << "and was changed at once";
}

TEST(AccountFate, IsTheSameWhileOneOfTheEqualRecordsRemains) {
    EXPECT_EQ(list({ann, ann, ann}).fate(1, list({ann, ann})), AccountFate::Same);
    EXPECT_EQ(list({ann, ann}).fate(1, list({ann})), AccountFate::Removed);
}

TEST(Accounts, HaveEmptyNamesForRecordsWithoutOne) {
    const Accounts accounts(Array({Value(ann), Value(Dictionary()), Value("text")}));
    EXPECT_EQ(accounts.names(), (std::vector<std::string>{"Ann", "", ""}));
    EXPECT_EQ(accounts.name(3), "");
}

TEST(Accounts, AreAbsentWhenTheValueIsMissingOrNotAList) {
    EXPECT_FALSE(Accounts::of(nullptr));
    const Value text("none");
    EXPECT_FALSE(Accounts::of(&text));
    const Value empty(Array{});
    ASSERT_TRUE(Accounts::of(&empty)) << "an empty list is a list";
    EXPECT_TRUE(Accounts::of(&empty)->empty());
}

TEST(Accounts, ReturnTheRecordAtAPosition) {
    const Accounts accounts(Array({Value(ann), Value("text")}));
    ASSERT_NE(accounts.record(0), nullptr);
    EXPECT_EQ(*accounts.record(0), ann);
    EXPECT_EQ(accounts.record(1), nullptr) << "it is not a record";
}

TEST(Accounts, ThrowARangeExceptionBeyondTheEndAndStayAsTheyAre) {
    Accounts accounts = list({ann, ben});
    const Value on(true);
    EXPECT_EQ(thrown([&] { accounts.record(2); }), "NSRangeException");
    EXPECT_EQ(thrown([&] { accounts.set(2, kHideApps, &on); }), "NSRangeException");
    EXPECT_EQ(thrown([&] { accounts.remove(2); }), "NSRangeException");
    EXPECT_EQ(thrown([&] { Accounts().record(0); }), "NSRangeException");
    EXPECT_EQ(accounts.records(), Array({Value(ann), Value(ben)}));
}

TEST(Accounts, FindTheFirstEnabledRecord) {
    const Dictionary enabled{{kAccountName, "Eva"}, {kAccountEnabled, true}};
    EXPECT_EQ(Accounts(Array({Value("text"), Value(ann), Value(enabled), Value(enabled)})).firstEnabled(),
              2u);
    EXPECT_EQ(list({ann, ben}).firstEnabled(), std::nullopt);
    EXPECT_EQ(Accounts().firstEnabled(), std::nullopt);
}

TEST(Accounts, ChangeOneValueOfOneRecord) {
    Accounts accounts = list({ann, ben, eva});
    const Value on(true);
    EXPECT_TRUE(accounts.set(1, kRestrictSiri, &on));
    EXPECT_EQ(accounts.records(), Array({Value(ann), Value(record("Ben", true)), Value(eva)}));
}

TEST(Accounts, ChangeNothingWithoutARecord) {
    Accounts accounts(Array({Value("text")}));
    const Value on(true);
    EXPECT_FALSE(accounts.set(0, kRestrictSiri, &on));
    EXPECT_EQ(accounts.records(), Array({Value("text")}));
}

TEST(Accounts, RefuseToStoreNil) {
    Accounts accounts = list({ann});
    EXPECT_EQ(thrown([&] { accounts.set(0, kRestrictSiri, nullptr); }), "NSInvalidArgumentException");
    EXPECT_EQ(accounts.records(), Array({Value(ann)}));
}

TEST(Accounts, KeepTheirOrderWhenOneIsAppendedOrRemoved) {
    Accounts accounts = list({ann, ben});
    accounts.append(eva);
    EXPECT_EQ(accounts.names(), (std::vector<std::string>{"Ann", "Ben", "Eva"}));
    accounts.remove(1);
    EXPECT_EQ(accounts.names(), (std::vector<std::string>{"Ann", "Eva"}));
}

TEST(Accounts, BecomeTheDefaultsAfterTheLastWasRemoved) {
    Accounts accounts = list({ann});
    accounts.remove(0);
    EXPECT_EQ(accounts.records(), DefaultSettings().find(kAccounts)->array());
}

using AccountsOnDisk = SettingsFixture;

TEST_F(AccountsOnDisk, AreReadFromTheDocumentAsItIsNow) {
    EXPECT_EQ(Accounts::onDisk().size(), 0u) << "there is no document";
    writeDocument({{kAccounts, Array({Value(ann)})}});
    EXPECT_EQ(Accounts::onDisk().names(), (std::vector<std::string>{"Ann"}));
    writeDocument({{kAccounts, "none"}});
    EXPECT_EQ(Accounts::onDisk().size(), 0u);
}

TEST_F(AccountsOnDisk, AreChangedInADocumentThatKeepsItsOtherEntries) {
    writeDocument({{kPasscode, "1234"}, {kAccounts, Array({Value(ann)})}, {"unknown", 5}});
    const auto update = updateAccounts(documentPath, [](Accounts& accounts) {
        accounts.append(ben);
        return true;
    });
    EXPECT_TRUE(update.written);
    EXPECT_EQ(
        readDocument(),
        (Dictionary{{kPasscode, "1234"}, {kAccounts, Array({Value(ann), Value(ben)})}, {"unknown", 5}}));
}

TEST_F(AccountsOnDisk, StayAsTheyAreWhenTheChangeDeclines) {
    writeDocument({{kAccounts, Array({Value(ann)})}});
    const auto update = updateAccounts(documentPath, [](Accounts& accounts) {
        accounts.append(ben);
        return false;
    });
    EXPECT_FALSE(update.changed);
    EXPECT_EQ(Accounts::onDisk().names(), (std::vector<std::string>{"Ann"}));
}

TEST_F(AccountsOnDisk, AreNotCreatedInADocumentWithoutAList) {
    bool called = false;
    const auto change = [&called](Accounts&) { return called = true; };
    EXPECT_FALSE(updateAccounts(documentPath, change).changed) << "there is no document";
    writeDocument({{kAccounts, "none"}});
    EXPECT_FALSE(updateAccounts(documentPath, change).changed);
    EXPECT_FALSE(called);
    EXPECT_EQ(readDocument(), (Dictionary{{kAccounts, "none"}}));
}

} // namespace
} // namespace wardlock::test
