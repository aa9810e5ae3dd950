#include "settings/Keys.h"
#include "tests/support/SettingsApplicationFixture.h"

#include <gtest/gtest.h>

namespace {

using platform::NSIndexPath;
using platform::SearchWords;
using wardlock::shell::FoundRow;

/// Records the row to which a search led.
struct FoundRowObserver : wardlock::shell::ScreenObserver {
    void rowFound(wardlock::shell::Page& page, NSIndexPath path) override {
        found.push_back(page.title() + ": " + page.row(path).label);
    }
    std::vector<std::string> found;
};

class SettingsSearch : public wardlock::test::SettingsApplicationFixture {
protected:
    void startWith(std::initializer_list<std::string_view> accounts, double transitionSeconds = 0) {
        writeDocument(documentOf(accounts));
        start(transitionSeconds);
        subscription_ = settings().observe(observer);
    }
    std::vector<FoundRow> find(std::string_view typed) {
        return settings().search().find(settings().screen().page(), SearchWords(typed));
    }
    /// Each row as "Wardlock > Tom > Siri".
    std::vector<std::string> ways(std::string_view typed) {
        std::vector<std::string> ways;
        for (const FoundRow& row : find(typed)) {
            std::string way;
            for (const std::string& name : row.trail)
                way += name + " > ";
            ways.push_back(way + row.label);
        }
        return ways;
    }
    void open(const FoundRow& row) {
        const auto result = settings().search().open(row);
        EXPECT_TRUE(result) << result.reason();
    }

    FoundRowObserver observer;

private:
    platform::Subscription subscription_;
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(SettingsSearch, FindsASettingOfEveryAccountFromTheFirstPage) {
    startWith({"Anna", "Tom"});
    EXPECT_EQ(ways("siri"), (Names{"Wardlock > Anna > Siri", "Wardlock > Tom > Siri"}));
    tap("Wardlock");
    EXPECT_EQ(ways("siri"), (Names{"Anna > Siri", "Tom > Siri"}));
}

TEST_F(SettingsSearch, FindsTheSettingOfOneAccountByBothNames) {
    startWith({"Anna", "Z\u00f6e"});
    EXPECT_EQ(ways("zoe SIRI"), Names{"Wardlock > Z\u00f6e > Siri"});
    EXPECT_EQ(ways("siri z"), Names{"Wardlock > Z\u00f6e > Siri"});
}

TEST_F(SettingsSearch, DoesNotListAnAccountsSettingsForItsName) {
    startWith({"Anna"});
    EXPECT_EQ(ways("anna"), Names{"Wardlock > Anna"});
}

TEST_F(SettingsSearch, FindsNothingForBlanksAndForUnknownWords) {
    startWith({"Anna"});
    EXPECT_EQ(ways(" "), Names());
    EXPECT_EQ(ways("submarine"), Names());
}

TEST_F(SettingsSearch, LeadsToTheSettingOfTheRightAccount) {
    startWith({"Anna", "Tom"});
    open(find("siri").at(1));
    EXPECT_EQ(page().title(), "Tom");
    EXPECT_EQ(settings().screen().pages().size(), 3U);
    EXPECT_EQ(observer.found, Names{"Tom: Siri"});
    tap("Siri");
    const auto stored = document();
    const auto& accounts = stored.find(wardlock::kAccounts)->array();
    EXPECT_FALSE(platform::boolValue(accounts.at(0).dictionary().find(wardlock::kRestrictSiri)));
    EXPECT_TRUE(platform::boolValue(accounts.at(1).dictionary().find(wardlock::kRestrictSiri)));
}

TEST_F(SettingsSearch, WaitsForEachPageToBeInItsPlace) {
    startWith({"Anna"}, 0.35);
    open(find("siri").at(0));
    EXPECT_EQ(page().title(), "Wardlock");
    clock.step(0.35);
    EXPECT_EQ(page().title(), "Anna");
    EXPECT_EQ(observer.found, Names());
    clock.step(0.35);
    EXPECT_EQ(observer.found, Names{"Anna: Siri"});
}

TEST_F(SettingsSearch, OpensAPageThatWasFoundAndPressesNoButton) {
    startWith({"Anna"});
    open(find("delete account").at(0));
    EXPECT_EQ(observer.found, Names{"Anna: Delete Account"});
    EXPECT_FALSE(settings().screen().alert());
    ASSERT_TRUE(settings().page().goBack());
    ASSERT_TRUE(settings().page().goBack());
    open(find("change log").at(0));
    EXPECT_EQ(page().title(), "Change Log");
}

TEST_F(SettingsSearch, RefusesARowThatIsNoLongerThere) {
    startWith({"Anna", "Tom"});
    tap("Wardlock");
    const FoundRow siri = find("siri").at(1);
    changeElsewhere(documentOf({"Tom"}));
    EXPECT_FALSE(settings().search().open(siri));
    EXPECT_EQ(page().title(), "Wardlock");
    EXPECT_EQ(ways("siri"), Names{"Tom > Siri"});
}

TEST_F(SettingsSearch, StopsWhereSomethingElseWasOpenedOnTheWay) {
    startWith({"Anna"}, 0.35);
    open(find("siri").at(0));
    changeElsewhere(documentOf({"Berta"}));
    clock.step(0.35);
    EXPECT_EQ(page().title(), "Wardlock");
    clock.step(0.35);
    EXPECT_EQ(observer.found, Names());
}

TEST_F(SettingsSearch, ReadsThePagesAgainOnceItWasForgotten) {
    startWith({"Anna"});
    EXPECT_EQ(ways("siri").size(), 1U);
    writeDocument(documentOf({"Anna", "Tom"}));
    EXPECT_EQ(ways("siri").size(), 1U);
    settings().search().forget();
    EXPECT_EQ(ways("siri").size(), 2U);
}
