#include "platform/plist/PropertyList.h"
#include "platform/services/ALApplicationList.h"
#include "settings/Keys.h"
#include "tests/support/SettingsApplicationFixture.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

namespace wardlock::test {
namespace {

using platform::Array;
using platform::Dictionary;
using platform::MutableDictionary;
using platform::Value;

using Labels = std::vector<std::string>;

/// The picker of this build's bundle over this build's AppList library, used as a user does.
class PickerInSettings : public SettingsApplicationFixture {
protected:
    void install(std::string_view identifier, std::string_view name) const {
        const Dictionary info{{"CFBundleIdentifier", identifier}, {"CFBundleDisplayName", name}};
        writeFile("/Applications/" + std::string(identifier) + ".app/Info.plist",
                  platform::dataWithPropertyList(info));
    }
    void installFour() const {
        install("org.a", "alpha");
        install("org.b", "Bravo");
        install("org.c", "CHARLIE");
        install("org.d", "delta");
    }
    /// A document of these accounts, the restricted list of each as given.
    static Dictionary restricting(std::initializer_list<std::pair<std::string_view, Array>> accounts) {
        MutableDictionary document(documentOf({}));
        platform::MutableArray records;
        for (const auto& [name, list] : accounts) {
            const Dictionary template_ = documentOf({name});
            MutableDictionary record(template_.find(kAccounts)->array().at(0).dictionary());
            record.set(kAppsRestricted, Value(list));
            records.append(Value(record.copy()));
        }
        document.set(kAccounts, Value(records.copy()));
        return document.copy();
    }
    void open(const Dictionary& document, std::string_view account = "Child") {
        writeDocument(document);
        start();
        openAgain(account);
    }
    void openAgain(std::string_view account = "Child") {
        tap("Wardlock");
        tap(account);
        tap("Apps");
    }
    void leave() {
        while (settings().screen().pages().size() > 1)
            ASSERT_TRUE(settings().page().goBack());
    }

    std::size_t rowCount() { return page().table()->rowCount(0); }
    Labels names() {
        Labels names;
        for (std::size_t row = 0; row < rowCount(); ++row)
            names.push_back(page().table()->show({0, row})->title());
        return names;
    }
    Labels keys() {
        Labels keys;
        for (std::size_t row = 0; row < rowCount(); ++row)
            keys.push_back(page().table()->show({0, row})->key());
        return keys;
    }
    /// How many rows from the first on are switched on; the others are off.
    std::size_t switchedOn() {
        std::size_t on = 0;
        while (on < rowCount() && page().table()->show({0, on})->isOn())
            ++on;
        for (std::size_t row = on; row < rowCount(); ++row)
            EXPECT_FALSE(page().table()->show({0, row})->isOn()) << row;
        return on;
    }
    void flip(std::size_t row) {
        const auto result = settings().page().flipTableSwitch({0, row});
        EXPECT_TRUE(result) << result.reason();
    }
    Array stored(std::size_t account = 0) const {
        return document().find(kAccounts)->array().at(account).dictionary().find(kAppsRestricted)->array();
    }
};

TEST_F(PickerInSettings, IsTitledAppsAndShowsOneSection) {
    installFour();
    open(restricting({{"Child", {}}}));
    EXPECT_EQ(page().title(), "Apps");
    EXPECT_EQ(settings().screen().backTitle(), "Child");
    EXPECT_EQ(page().table()->sectionCount(), 1u);
    EXPECT_EQ(page().table()->rowHeight({0, 0}), 35.0);
    EXPECT_EQ(names(), (Labels{"alpha", "Bravo", "CHARLIE", "delta"}));
    EXPECT_EQ(page().table()->show({0, 0})->detail(), "") << "the identifier is not to be seen";
}

TEST_F(PickerInSettings, ShowsTheRestrictedFirst) {
    installFour();
    open(restricting({{"Child", {"org.d", "org.b"}}}));
    EXPECT_EQ(names(), (Labels{"Bravo", "delta", "alpha", "CHARLIE"}));
    EXPECT_EQ(switchedOn(), 2u);
}

TEST_F(PickerInSettings, ShowsAHiddenServiceOnlyWhereItIsRestricted) {
    installFour();
    install("com.apple.Preferences", "Settings");
    install("com.apple.webapp", "Web");
    open(restricting({{"Child", {"com.apple.Preferences"}}}));
    EXPECT_EQ(keys(), (Labels{"com.apple.Preferences", "org.a", "org.b", "org.c", "org.d"}));
    EXPECT_EQ(switchedOn(), 1u);
}

TEST_F(PickerInSettings, ShowsOrphansWithoutATitleAfterTheNamedOnes) {
    installFour();
    open(restricting({{"Child", {"org.gone", "org.d"}}}));
    EXPECT_EQ(keys(), (Labels{"org.d", "org.gone", "org.a", "org.b", "org.c"}));
    EXPECT_EQ(names()[1], "");
    EXPECT_EQ(switchedOn(), 2u);
    flip(1);
    EXPECT_EQ(stored(), Array({"org.d"}));
}

TEST_F(PickerInSettings, ShowsTwiceWhatIsStoredTwiceAndRemovesBoth) {
    installFour();
    open(restricting({{"Child", {"org.b", "org.a", "org.b"}}}));
    EXPECT_EQ(keys(), (Labels{"org.a", "org.b", "org.b", "org.c", "org.d"}));
    flip(1);
    EXPECT_EQ(stored(), Array({"org.a"}));
}

TEST_F(PickerInSettings, KeepsRowsInPlaceAndRegroupsThemOnReturn) {
    installFour();
    open(restricting({{"Child", {"org.d"}}}));
    EXPECT_EQ(keys(), (Labels{"org.d", "org.a", "org.b", "org.c"}));
    flip(3);
    flip(0);
    EXPECT_EQ(keys(), (Labels{"org.d", "org.a", "org.b", "org.c"}));
    ASSERT_TRUE(settings().page().goBack());
    tap("Apps");
    EXPECT_EQ(keys(), (Labels{"org.c", "org.a", "org.b", "org.d"}));
    EXPECT_EQ(switchedOn(), 1u);
}

TEST_F(PickerInSettings, StoresOffAndOnAgainOnceAtTheEnd) {
    installFour();
    open(restricting({{"Child", {"org.a", "org.b"}}}));
    flip(0);
    flip(0);
    EXPECT_EQ(stored(), Array({"org.b", "org.a"}));
    EXPECT_EQ(keys()[0], "org.a");
}

TEST_F(PickerInSettings, AnnouncesEachSwitchOnce) {
    installFour();
    open(restricting({{"Child", {}}}));
    const std::size_t before = center.posts.size();
    flip(2);
    ASSERT_EQ(center.posts.size(), before + 1);
    EXPECT_EQ(center.posts.back().name, "com.tavix.wardlock/update");
    EXPECT_EQ(center.posts.back().userInfo,
              Dictionary({{"key", "kAppsRestricted"}, {"object", Array({"org.c"})}}));
}

TEST_F(PickerInSettings, LeavesForeignKeysAndOtherAccountsUntouched) {
    installFour();
    MutableDictionary before(restricting({{"Child", {}}, {"Other", {"org.a"}}}));
    before.set("foreign", Value(Dictionary({{"data", Value::data("x")}})));
    open(before.copy(), "Other");
    flip(3);
    MutableDictionary after(restricting({{"Child", {}}, {"Other", {"org.a", "org.d"}}}));
    after.set("foreign", Value(Dictionary({{"data", Value::data("x")}})));
    EXPECT_EQ(document(), after.copy());
}

TEST_F(PickerInSettings, KeepsAChangeOfAnotherProcess) {
    installFour();
    open(restricting({{"Child", {"org.a"}}}));
    MutableDictionary elsewhere(restricting({{"Renamed", {"org.b"}}}));
    elsewhere.set(kEnabled, Value(false));
    changeElsewhere(elsewhere.copy());
    flip(2);
    EXPECT_EQ(stored(), Array({"org.b", "org.c"}));
    EXPECT_FALSE(platform::boolValue(document().find(kEnabled)));
    EXPECT_EQ(document().find(kAccounts)->array()[0].dictionary().find(kAccountName)->string(), "Renamed");
}

TEST_F(PickerInSettings, LeavesTheListOfTheNextAccountAlone) {
    installFour();
    open(restricting({{"Child", {"org.a"}}, {"Other", {"org.b"}}}));
    flip(1);
    leave();
    openAgain("Other");
    EXPECT_EQ(keys(), (Labels{"org.b", "org.a", "org.c", "org.d"}));
    flip(0);
    EXPECT_EQ(stored(0), Array({"org.a", "org.b"}));
    EXPECT_EQ(stored(1), Array());
}

TEST_F(PickerInSettings, EndsTheProcessAndWritesNothingWhenARecordLacksItsList) {
    installFour();
    MutableDictionary record(documentOf({"Child"}).find(kAccounts)->array().at(0).dictionary());
    record.remove(kAppsRestricted);
    MutableDictionary document(documentOf({}));
    document.set(kAccounts, Value(Array({Value(record.copy())})));
    open(document.copy());
    EXPECT_EQ(switchedOn(), 0u);
    const std::string before = readFile(documentPath);
    EXPECT_EXIT((void)settings().page().flipTableSwitch({0, 0}), testing::KilledBySignal(SIGABRT), "");
    EXPECT_EQ(readFile(documentPath), before);
}

TEST_F(PickerInSettings, SkipsASaveWhenTheAccountsBecameEmpty) {
    installFour();
    open(restricting({{"Child", {}}}));
    writeDocument(restricting({}));
    const std::size_t posts = center.posts.size();
    EXPECT_FALSE(settings().page().flipTableSwitch({0, 0}));
    EXPECT_EQ(document(), restricting({}));
    EXPECT_EQ(center.posts.size(), posts);
    EXPECT_EQ(page().title(), "Wardlock");
}

TEST_F(PickerInSettings, CannotBeOpenedWhenTheAccountsAreEmpty) {
    installFour();
    writeDocument(restricting({{"Child", {}}}));
    start();
    tap("Wardlock");
    tap("Child");
    writeDocument(restricting({}));
    EXPECT_FALSE(settings().page().tapRow(pathOf("Apps")));
    EXPECT_EQ(page().title(), "Wardlock");
}

TEST_F(PickerInSettings, ShowsTheRestrictedAloneWithoutTheLibrary) {
    installFour();
    makeFolder("/Library/MobileSubstrate/DynamicLibraries");
    writeFile(platform::appListLibraryPath, "no library");
    open(restricting({{"Child", {"org.a"}}}));
    EXPECT_EQ(keys(), (Labels{"org.a"}));
    EXPECT_EQ(names(), (Labels{""}));
    flip(0);
    EXPECT_EQ(stored(), Array());
}

TEST_F(PickerInSettings, HasOneEmptySectionWhenNothingIsInstalled) {
    open(restricting({{"Child", {}}}));
    EXPECT_EQ(page().table()->sectionCount(), 1u);
    EXPECT_EQ(rowCount(), 0u);
}

TEST_F(PickerInSettings, ListsWhatIsInstalledWhenItOpens) {
    installFour();
    open(restricting({{"Child", {"org.a"}}}));
    std::filesystem::remove_all(onDisk("/Applications/org.a.app"));
    install("org.e", "Echo");
    ASSERT_TRUE(settings().page().goBack());
    tap("Apps");
    EXPECT_EQ(names(), (Labels{"", "Bravo", "CHARLIE", "delta", "Echo"}));
}

} // namespace
} // namespace wardlock::test
