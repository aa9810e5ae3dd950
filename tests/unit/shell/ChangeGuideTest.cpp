// Taking a change back leads to the page that shows it.

#include "settings/history/Undo.h"
#include "tests/unit/shell/UndoFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

class ChangeGuide : public UndoFixture {
protected:
    /// The row of an application in the picker.
    std::size_t rowOf(const std::string& identifier) {
        for (std::size_t row = 0; row < page().table()->rowCount(0); ++row)
            if (page().table()->show({0, row})->key() == identifier)
                return row;
        ADD_FAILURE() << "no row of " << identifier;
        return 0;
    }
    bool isRestricted(const std::string& identifier) {
        return page().table()->show({0, rowOf(identifier)})->isOn();
    }
};

TEST_F(ChangeGuide, FollowsToTheSettingOfAnAccount) {
    startWith({"Ann", "Tom"});
    openAccount("Tom");
    tap("Siri");
    back();
    tap("Ann");
    undo();
    EXPECT_EQ(pages(), (Names{"Settings", "Wardlock", "Tom"}));
    EXPECT_EQ(found, Names{"Tom: Siri"});
    back();
    back();
    found.clear();
    redo();
    EXPECT_EQ(pages(), (Names{"Settings", "Wardlock", "Tom"}));
    EXPECT_EQ(found, Names{"Tom: Siri"});
    EXPECT_TRUE(row("Siri").isOn());
}

TEST_F(ChangeGuide, FollowsPageByPageWhilePagesMove) {
    startWith({"Ann", "Tom"}, 0.35);
    tap("Wardlock");
    clock.step(1);
    tap("Tom");
    clock.step(1);
    tap("Siri");
    back();
    clock.step(1);
    tap("Ann");
    clock.step(1);
    undo();
    EXPECT_EQ(pages(), (Names{"Settings", "Wardlock"}));
    EXPECT_EQ(found, Names());
    clock.step(0.4);
    EXPECT_EQ(pages(), (Names{"Settings", "Wardlock", "Tom"}));
    clock.step(0.4);
    EXPECT_EQ(found, Names{"Tom: Siri"});
}

TEST_F(ChangeGuide, FollowsToTheAccountThatWasEnabled) {
    startWith({"Ann", "Tom"});
    openAccount("Ann");
    tap("Enabled");
    back();
    tap("Tom");
    tap("Enabled");
    back();
    undo();
    EXPECT_EQ(found, Names{"Tom: Enabled"});
    back();
    redo();
    EXPECT_EQ(found, (Names{"Tom: Enabled", "Tom: Enabled"}));
}

TEST_F(ChangeGuide, FollowsToTheFirstPage) {
    startWith({"Ann"});
    tap("Wardlock");
    tap("Passcode");
    press("1234");
    clock.step(1);
    tap("Enabled");
    tap("Ann");
    undo();
    EXPECT_EQ(pages(), (Names{"Settings", "Wardlock"}));
    EXPECT_TRUE(row("Enabled").isOn());
    // While no passcode is set, one can be set again.
    ASSERT_EQ(wardlock::undo(Whose::Own).outcome, UndoResult::Outcome::Done);
    tap("Ann");
    redo();
    EXPECT_EQ(document().find(kPasscode)->string(), "1234");
    EXPECT_EQ(found, (Names{"Wardlock: Enabled", "Wardlock: Passcode"}));
}

TEST_F(ChangeGuide, FollowsToThePickerAndShowsItsSwitch) {
    installApplications();
    startWith({"Ann"});
    openAccount("Ann");
    tap("Apps");
    ASSERT_TRUE(settings().page().flipTableSwitch({0, rowOf("com.example.one")}));
    ASSERT_TRUE(isRestricted("com.example.one"));
    undo();
    EXPECT_EQ(pages(), (Names{"Settings", "Wardlock", "Ann", "Apps"}));
    EXPECT_FALSE(isRestricted("com.example.one"));
    back();
    redo();
    EXPECT_EQ(pages(), (Names{"Settings", "Wardlock", "Ann", "Apps"}));
    EXPECT_TRUE(isRestricted("com.example.one"));
}

TEST_F(ChangeGuide, StaysOnThePagesOfAnotherBundle) {
    installFixtureBundle();
    startWith({"Ann"});
    tap("Wardlock");
    tap("Enabled");
    back();
    tap("Fixture");
    undo();
    EXPECT_TRUE(document().find(kEnabled)->boolean());
    EXPECT_EQ(pages(), (Names{"Settings", "Fixture"}));
}

} // namespace
} // namespace wardlock::test
