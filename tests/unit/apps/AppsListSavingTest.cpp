#include "tests/support/ThrownException.h"
#include "tests/unit/apps/PickerFixture.h"

namespace wardlock::test {
namespace {

using platform::Array;
using platform::Dictionary;
using platform::Value;

class AppsListSaving : public PickerFixture {
protected:
    AppsListSaving() { install({{"a", "Alpha"}, {"b", "Bravo"}, {"c", "Charlie"}}); }
};

TEST_F(AppsListSaving, AppendsASwitchedOnApplication) {
    restrict({"c"});
    const auto view = open();
    tap(*view, 2);
    EXPECT_EQ(restricted(), Array({"c", "b"}));
    expectOneChange("kAppsRestricted", Array({"c", "b"}));
}

TEST_F(AppsListSaving, RemovesEveryOccurrenceOfASwitchedOffApplication) {
    restrict({"a", "b", "a", "a"});
    const auto view = open();
    tap(*view, 0);
    EXPECT_EQ(restricted(), Array({"b"}));
    expectOneChange("kAppsRestricted", Array({"b"}));
}

TEST_F(AppsListSaving, PutsAnApplicationSwitchedOffAndOnAgainAtTheEndOnce) {
    restrict({"a", "b"});
    const auto view = open();
    tap(*view, 0);
    tap(*view, 0);
    EXPECT_EQ(restricted(), Array({"b", "a"}));
    EXPECT_EQ(rows(*view), (Identifiers{"a", "b", "c"}));
}

TEST_F(AppsListSaving, AppendsOnceForEachSwitchTurnedOnSeparately) {
    restrict({"a", "a"});
    const auto view = open();
    const auto first = cell(*view, 0);
    const auto second = cell(*view, 1);
    switchOf(*first).toggle();
    EXPECT_TRUE(switchOf(*second).isOn()) << "it is not provided again";
    switchOf(*first).toggle();
    switchOf(*second).setOn(false, false);
    switchOf(*second).toggle();
    EXPECT_EQ(restricted(), Array({"a", "a"}));
}

TEST_F(AppsListSaving, LeavesOtherAccountsAndForeignKeysAsTheyAre) {
    platform::MutableDictionary record(accountWith({"a"}));
    record.set("kRestrictSiri", Value(true));
    record.set("unknown", Value::data(std::string_view("\0\1", 2)));
    const Dictionary other = accountNamed("Other", true);
    writeDocument({{"foreign", Dictionary({{"x", 1.5}})},
                   {"kEnabled", false},
                   {"kPasscode", "1234"},
                   {"kAccounts", Array({Value(other), Value(record.copy()), Value("no record")})}});
    SelectedIndex = 1;
    const auto view = open();
    tap(*view, 1);
    record.set("kAppsRestricted", Value(Array({"a", "b"})));
    EXPECT_EQ(document(),
              Dictionary({{"foreign", Dictionary({{"x", 1.5}})},
                          {"kEnabled", false},
                          {"kPasscode", "1234"},
                          {"kAccounts", Array({Value(other), Value(record.copy()), Value("no record")})}}));
}

TEST_F(AppsListSaving, KeepsWhatOthersWroteSinceThePickerOpened) {
    restrict({"a"});
    const auto view = open();
    platform::MutableDictionary record(accountWith({"c"}));
    record.set("kAccountName", Value("Renamed"));
    writeDocument({{"kEnabled", false}, {"kAccounts", Array({Value(record.copy())})}});
    tap(*view, 1);
    EXPECT_EQ(account(0).find("kAccountName")->string(), "Renamed");
    EXPECT_FALSE(platform::boolValue(document().find("kEnabled")));
    EXPECT_EQ(restricted(), Array({"a", "b"})) << "its own list is the picker's";
}

TEST_F(AppsListSaving, FollowsSelectedIndexAtTheTimeOfTheSave) {
    writeAccounts({Value(accountWith({"a"})), Value(accountWith({"b"}))});
    const auto view = open();
    SelectedIndex = 1;
    view->savePreferences();
    EXPECT_EQ(restricted(0), Array({"a"}));
    EXPECT_EQ(restricted(1), Array({"a"}));
}

TEST_F(AppsListSaving, WritesAndAnnouncesAnEqualList) {
    restrict({"a"});
    const auto view = open();
    const std::string written = markDocument();
    view->savePreferences();
    EXPECT_EQ(readFile(documentPath), written);
    expectOneChange("kAppsRestricted", Array({"a"}));
}

TEST_F(AppsListSaving, IsSkippedWhenTheAccountsAreEmpty) {
    restrict({"a"});
    const auto view = open();
    writeAccounts({});
    tap(*view, 1);
    EXPECT_EQ(accounts(), Array());
    expectNoChange();
}

TEST_F(AppsListSaving, IsSkippedWhenTheDocumentIsMissing) {
    restrict({"a"});
    const auto view = open();
    removeFile(documentPath);
    tap(*view, 1);
    EXPECT_FALSE(exists(documentPath));
    expectNoChange();
}

TEST_F(AppsListSaving, IsSkippedWhenTheElementIsNotARecord) {
    restrict({"a"});
    const auto view = open();
    const Dictionary document{{"kAccounts", Array({"no record"})}};
    writeDocument(document);
    tap(*view, 1);
    EXPECT_EQ(this->document(), document);
    expectNoChange();
}

TEST_F(AppsListSaving, ThrowsAndWritesNothingOutsideTheAccounts) {
    restrict({"a"});
    const auto view = open();
    const std::string before = readFile(documentPath);
    for (const std::intptr_t index : {std::intptr_t{1}, std::intptr_t{-1}}) {
        SelectedIndex = index;
        EXPECT_EQ(thrown([&view] { view->savePreferences(); }), platform::NSRangeException);
    }
    EXPECT_EQ(readFile(documentPath), before);
    expectNoChange();
}

TEST_F(AppsListSaving, ThrowsBeforeAnythingIsWrittenWhenTheRecordLacksItsList) {
    writeAccounts({Value(accountWithoutList())});
    const auto view = open();
    const std::string before = readFile(documentPath);
    EXPECT_EQ(thrown([&] { tap(*view, 0); }), platform::NSInvalidArgumentException);
    EXPECT_FALSE(view->enabled());
    EXPECT_EQ(readFile(documentPath), before);
    expectNoChange();
}

TEST_F(AppsListSaving, IsAnnouncedEvenWhenItCannotBeWritten) {
    restrict({"a"});
    const auto view = open();
    const std::string before = readFile(documentPath);
    refuseWrites();
    tap(*view, 1);
    EXPECT_EQ(readFile(documentPath), before);
    ASSERT_EQ(changes.posts.size(), 1u);
    EXPECT_EQ(*changes.posts[0].userInfo,
              Dictionary({{"key", "kAppsRestricted"}, {"object", Array({"a", "b"})}}));
}

TEST_F(AppsListSaving, StoresAnEmptyList) {
    restrict({"a"});
    const auto view = open();
    tap(*view, 0);
    EXPECT_EQ(restricted(), Array());
    expectOneChange("kAppsRestricted", Array());
}

TEST_F(AppsListSaving, PassesTheRecordToTheNextModelEvenWhenItCannotBeWritten) {
    restrict({"a"});
    const auto view = open();
    refuseWrites();
    tap(*view, 2);
    EXPECT_EQ(restricted(), Array({"a"}));
    view->setupArrays();
    EXPECT_EQ(rows(*view), (Identifiers{"a", "c", "b"}));
}

TEST_F(AppsListSaving, PassesTheSavedRecordToTheNextModel) {
    restrict({"a"});
    const auto view = open();
    tap(*view, 2);
    view->setupArrays();
    EXPECT_EQ(rows(*view), (Identifiers{"a", "c", "b"}));
}

} // namespace
} // namespace wardlock::test
