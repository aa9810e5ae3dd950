#include "settings/Accounts.h"

#include "settings/Keys.h"
#include "tests/unit/settings/SettingsFixture.h"

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
    EXPECT_EQ(list({ann}).fate(1, list({ann, ben})), AccountFate::Removed) << "there was none";
}

TEST(AccountFate, IsRemovedWhenTheNextAccountTookItsPosition) {
    EXPECT_EQ(list({ann, ben, eva}).fate(1, list({ann, eva})), AccountFate::Removed);
    EXPECT_EQ(list({ann, ben, eva}).fate(1, list({ann, record("Eva", true)})), AccountFate::Removed)
        << "and was changed at once";
}

TEST(AccountFate, OfEqualRecordsIsTheSameWhereOneIsStillThere) {
    EXPECT_EQ(list({ann, ann, ann}).fate(1, list({ann, ann})), AccountFate::Same);
    EXPECT_EQ(list({ann, ann}).fate(1, list({ann})), AccountFate::Removed);
}

TEST(Accounts, HaveTheirNamesAndEmptyOnesWhereThereAreNone) {
    const Accounts accounts(Array({Value(ann), Value(Dictionary()), Value("text")}));
    EXPECT_EQ(accounts.names(), (std::vector<std::string>{"Ann", "", ""}));
    EXPECT_EQ(accounts.name(3), "");
}

using AccountsOnDisk = SettingsFixture;

TEST_F(AccountsOnDisk, AreThoseOfTheDocumentAsItIsNow) {
    EXPECT_EQ(Accounts::onDisk().size(), 0u) << "there is no document";
    writeDocument({{kAccounts, Array({Value(ann)})}});
    EXPECT_EQ(Accounts::onDisk().names(), (std::vector<std::string>{"Ann"}));
    writeDocument({{kAccounts, "none"}});
    EXPECT_EQ(Accounts::onDisk().size(), 0u);
}

} // namespace
} // namespace wardlock::test
