#include "platform/plist/PropertyListFile.h"
#include "settings/Constants.h"
#include "settings/Keys.h"
#include "tests/support/FixtureValues.h"
#include "tests/support/SettingsApplicationFixture.h"

using platform::Value;

namespace {

/// Another process changes what is being shown.
class LiveRefresh : public wardlock::test::SettingsApplicationFixture {
protected:
    /// The document as it is, with one key of an account changed.
    platform::Dictionary withAccountValue(std::size_t index, std::string_view key, const Value& value) {
        platform::MutableArray accounts(document().find(wardlock::kAccounts)->array());
        platform::MutableDictionary account(accounts.at(index).dictionary());
        account.set(key, value);
        accounts.replace(index, account.copy());
        platform::MutableDictionary changed(document());
        changed.set(wardlock::kAccounts, accounts.copy());
        return changed.copy();
    }
    void announce() {
        const platform::Dictionary userInfo{{"key", "on"}, {"object", true}};
        center.deliver("com.tavix.wardlock/update", &userInfo);
    }
    void writeFixture(std::string_view key, const Value& value) {
        platform::updateFile("/var/mobile/Library/Preferences/test.fixture.plist",
                             [&](platform::MutableDictionary& values) {
                                 values.set(key, value);
                                 return true;
                             });
    }
};

/// Counts how often a front end is notified that a list was rebuilt.
struct Counter : wardlock::shell::ScreenObserver {
    void listReset(wardlock::shell::Page&) override { ++resets; }
    void rowChanged(wardlock::shell::Page&, platform::NSIndexPath) override { ++rows; }
    void changeAnnounced(const wardlock::shell::Announcement& announcement) override {
        announcements.push_back(announcement);
    }
    int resets = 0;
    int rows = 0;
    std::vector<wardlock::shell::Announcement> announcements;
};

} // namespace

TEST_F(LiveRefresh, RebuildsTheRootPage) {
    start();
    tap("Wardlock");
    EXPECT_TRUE(row("Enabled").isOn());
    platform::MutableDictionary changed(documentOf({"Ann", "Tom"}));
    changed.set(wardlock::kEnabled, false);
    changeElsewhere(changed.copy());
    EXPECT_TRUE(hasRow("Tom"));
    EXPECT_FALSE(row("Enabled").isOn());
}

TEST_F(LiveRefresh, ReadsTheRowsOfTheAccountPageAgain) {
    start();
    tap("Wardlock");
    tap("Default");
    EXPECT_FALSE(row("Siri").isOn());
    Counter counter;
    const auto observing = settings().observe(counter);
    changeElsewhere(withAccountValue(0, wardlock::kRestrictSiri, true));
    EXPECT_TRUE(row("Siri").isOn());
    EXPECT_EQ(counter.rows, 1) << "only the row that looks different";
}

TEST_F(LiveRefresh, KeepsTextBeingTyped) {
    start();
    tap("Wardlock");
    tap("Default");
    type("Account Name", "half a na");
    changeElsewhere(withAccountValue(0, wardlock::kAccountName, "Other"));
    EXPECT_TRUE(row("Account Name").editing);
    EXPECT_EQ(row("Account Name").text, "half a na");
}

TEST_F(LiveRefresh, KeepsOldValuesWhereReadingThrows) {
    installFixtureBundle();
    writeFixture("flavour", "v");
    start();
    tap("Fixture");
    tap("Flavour");
    EXPECT_TRUE(row("Vanilla").marked);
    writeFixture("flavour", platform::Dictionary());
    announce();
    EXPECT_TRUE(row("Vanilla").marked);
    EXPECT_FALSE(row("Chocolate").marked);
}

TEST_F(LiveRefresh, KeepsOldValuesOfUnreadRows) {
    installFixtureBundle();
    writeFixture("flavour", "v");
    start();
    tap("Fixture");
    tap("Flavour");
    writeFixture("flavour", platform::Dictionary());
    announce();
    EXPECT_TRUE(row("Vanilla").marked);
}

TEST_F(LiveRefresh, KeepsTheRowsOfAFirstPageWhoseValuesCannotBeRead) {
    installFixtureBundle();
    writeFixture("nickname", "Tom");
    start();
    tap("Fixture");
    EXPECT_EQ(row("Nickname").text, "Tom");
    writeFixture("nickname", platform::Dictionary());
    writeFixture("on", true);
    announce();
    EXPECT_EQ(row("Nickname").text, "Tom");
    EXPECT_TRUE(row("On").isOn());
}

TEST_F(LiveRefresh, KeepsTypedTextWhenTheListIsRebuilt) {
    installFixtureBundle();
    start();
    tap("Fixture");
    type("Nickname", "half");
    announce();
    EXPECT_TRUE(row("Nickname").editing);
    EXPECT_EQ(row("Nickname").text, "half");
    settings().page().endEditing();
    EXPECT_EQ(wardlock::test::fixtureValues().find("nickname")->string(), "half");
}

TEST_F(LiveRefresh, ReloadsNothingForTheProcesssOwnPosts) {
    start();
    tap("Wardlock");
    Counter counter;
    const auto observing = settings().observe(counter);
    tap("Enabled");
    EXPECT_EQ(counter.resets, 0);
    ASSERT_EQ(counter.announcements.size(), 1U);
    EXPECT_TRUE(counter.announcements[0].own);
    EXPECT_EQ(counter.announcements[0].key, "kEnabled");
    EXPECT_EQ(counter.announcements[0].object, Value(false));
    changeElsewhere(document());
    EXPECT_EQ(counter.resets, 1);
    EXPECT_FALSE(counter.announcements[1].own);
}

TEST_F(LiveRefresh, RefreshesForAnAnnouncementWithoutUserInfo) {
    start();
    tap("Wardlock");
    writeDocument(documentOf({"Ann", "Tom"}));
    center.deliver("com.tavix.wardlock/update", nullptr);
    EXPECT_TRUE(hasRow("Tom"));
}

TEST_F(LiveRefresh, NeverCreatesADocumentThatWentMissing) {
    start();
    tap("Wardlock");
    removeFile(documentPath);
    center.deliver("com.tavix.wardlock/update", nullptr);
    EXPECT_FALSE(exists(documentPath));
    EXPECT_FALSE(hasRow("Default"));
}

TEST_F(LiveRefresh, IgnoresAnApplicationThatIsGone) {
    start();
    tap("Wardlock");
    quit();
    center.deliver("com.tavix.wardlock/update", nullptr);
    start();
    tap("Wardlock");
    EXPECT_TRUE(hasRow("Default"));
}
