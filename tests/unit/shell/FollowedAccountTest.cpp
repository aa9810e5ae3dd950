#include "settings/Accounts.h"
#include "settings/Keys.h"
#include "tests/support/SettingsApplicationFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

using platform::Array;
using platform::Dictionary;
using platform::Value;

constexpr const char* one = "com.example.one";
constexpr const char* two = "com.example.two";

/// What the pages of an account show while others change it.
class FollowedAccount : public SettingsApplicationFixture {
protected:
    void open(std::initializer_list<std::string_view> names, std::string_view name) {
        start();
        writeDocument(documentOf(names));
        tap("Wardlock");
        tap(name);
    }
    /// The picker of the only account, with two applications, neither restricted.
    void openPicker() {
        for (const std::string identifier : {one, two})
            writeFile("/Applications/" + identifier + ".app/Info.plist",
                      "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>" + identifier +
                          "</string></dict></plist>");
        start();
        writeDocument(withRestricted({}));
        tap("Wardlock");
        tap("Tom");
        tap("Apps");
    }
    static Dictionary withAccountValue(const Dictionary& document, std::string_view key, const Value& value) {
        Accounts accounts = Accounts::of(document.find(kAccounts)).value_or(Accounts());
        accounts.set(0, key, &value);
        platform::MutableDictionary changed(document);
        changed.set(kAccounts, accounts.records());
        return changed.copy();
    }
    static Dictionary withRestricted(std::initializer_list<Value> identifiers) {
        return withAccountValue(documentOf({"Tom"}), kAppsRestricted, Array(identifiers));
    }
    std::vector<std::string> stored() const {
        std::vector<std::string> identifiers;
        const Accounts accounts = Accounts::onDisk();
        for (const Value& value : accounts.record(0)->find(kAppsRestricted)->array())
            identifiers.emplace_back(value.string());
        return identifiers;
    }
    std::size_t rowOf(const std::string& identifier) {
        for (std::size_t row = 0; row < page().table()->rowCount(0); ++row)
            if (page().table()->show({0, row})->key() == identifier)
                return row;
        ADD_FAILURE() << "no row of " << identifier;
        return 0;
    }
    bool isOn(const std::string& identifier) { return page().table()->show({0, rowOf(identifier)})->isOn(); }
    shell::InputResult flip(const std::string& identifier) {
        return settings().page().flipTableSwitch({0, rowOf(identifier)});
    }
};

TEST_F(FollowedAccount, GivesItsPageTheNameThatWasTyped) {
    open({"Ann", "Tom"}, "Tom");
    type("Account Name", "Thomas");
    settings().page().endEditing();
    EXPECT_EQ(page().title(), "Thomas");
    tap("Apps");
    EXPECT_EQ(settings().screen().backTitle(), "Thomas");
}

TEST_F(FollowedAccount, GivesItsPageTheNameThatAnotherProcessStored) {
    open({"Tom"}, "Tom");
    changeElsewhere(withAccountValue(document(), kAccountName, "Thomas"));
    EXPECT_EQ(page().title(), "Thomas");
}

TEST_F(FollowedAccount, GivesThePageBelowThePickerItsName) {
    open({"Tom"}, "Tom");
    tap("Apps");
    changeElsewhere(withAccountValue(document(), kAccountName, "Thomas"));
    EXPECT_EQ(page().title(), "Apps");
    EXPECT_EQ(settings().screen().backTitle(), "Thomas");
}

TEST_F(FollowedAccount, KeepsItsNameWhileItsPageLeavesAfterTheDeletion) {
    start(0.35);
    writeDocument(documentOf({"Ann", "Tom"}));
    tap("Wardlock");
    clock.step(0.35);
    tap("Ann");
    clock.step(0.35);
    const auto left = settings().screen().page();
    tap("Delete Account");
    chooseInAlert("Delete");
    EXPECT_EQ(left->title(), "Ann");
}

TEST_F(FollowedAccount, ShowsThePickerWhatAnotherProcessStored) {
    openPicker();
    EXPECT_FALSE(isOn(two));
    changeElsewhere(withRestricted({two}));
    EXPECT_TRUE(isOn(two));
    EXPECT_EQ(rowOf(two), 0u) << "restricted applications are first on a new page";
    EXPECT_TRUE(flip(one));
    EXPECT_EQ(stored(), (std::vector<std::string>{two, one}));
}

TEST_F(FollowedAccount, RefusesATapOnAPickerThatShowsAnotherList) {
    openPicker();
    const auto row = rowOf(one);
    writeDocument(withRestricted({two}));
    EXPECT_EQ(settings().page().flipTableSwitch({0, row}).reason(), "another program changed the list");
    EXPECT_EQ(stored(), std::vector<std::string>{two});
    EXPECT_TRUE(isOn(two));
    EXPECT_TRUE(flip(one));
    EXPECT_EQ(stored(), (std::vector<std::string>{two, one}));
}

TEST_F(FollowedAccount, KeepsThePickersRowsWhereOtherValuesChange) {
    openPicker();
    EXPECT_TRUE(flip(two));
    const auto row = rowOf(two);
    EXPECT_GT(row, 0u);
    changeElsewhere(withAccountValue(document(), kRestrictSiri, true));
    EXPECT_EQ(rowOf(two), row);
    EXPECT_TRUE(isOn(two));
}

} // namespace
} // namespace wardlock::test
