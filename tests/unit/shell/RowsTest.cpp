#include "platform/plist/PropertyListFile.h"
#include "tests/support/FixtureValues.h"
#include "tests/support/SettingsApplicationFixture.h"

#include <csignal>

using platform::Value;
using wardlock::shell::Row;
using wardlock::shell::RowKind;

namespace {

/// The page with a row of every kind.
class PageRows : public wardlock::test::SettingsApplicationFixture {
protected:
    PageRows() {
        installFixtureBundle();
        start();
        tap("Fixture");
    }

    void expectValue(std::string_view key, const Value& value) {
        const auto values = wardlock::test::fixtureValues();
        const Value* stored = values.find(key);
        ASSERT_TRUE(stored) << key;
        EXPECT_EQ(*stored, value) << key;
    }
    bool hasValue(std::string_view key) { return wardlock::test::fixtureValues().find(key) != nullptr; }
};

} // namespace

TEST_F(PageRows, AreGroupedInSectionsWithHeadersAndFooters) {
    ASSERT_EQ(page().sectionCount(), 5U);
    EXPECT_EQ(page().section(0).header, "");
    EXPECT_EQ(page().section(0).rowCount, 1U);
    EXPECT_EQ(page().section(1).header, "Values");
    EXPECT_EQ(page().section(1).footer, "All of them are kept.");
    EXPECT_EQ(page().section(1).rowCount, 4U);
    EXPECT_EQ(page().section(3).footer, "Footer only");
    EXPECT_EQ(page().section(4).rowCount, 0U);
}

TEST_F(PageRows, HaveTheirKinds) {
    EXPECT_EQ(row("On").kind, RowKind::Switch);
    EXPECT_EQ(row("Flavour").kind, RowKind::LinkList);
    EXPECT_EQ(page().row({1, 1}).kind, RowKind::Slider);
    EXPECT_EQ(row("Nickname").kind, RowKind::EditText);
    EXPECT_EQ(row("PIN").kind, RowKind::SecureEditText);
    EXPECT_EQ(row("Version 1").kind, RowKind::StaticText);
    EXPECT_EQ(row("Starred").kind, RowKind::Button);
    EXPECT_EQ(row("Table").kind, RowKind::Link);
}

TEST_F(PageRows, HaveTheDetailsThatAFrontEndShows) {
    EXPECT_EQ(row("Flavour").choices, (std::vector<std::string>{"Vanilla", "Chocolate"}));
    const Row slider = page().row({1, 1});
    EXPECT_EQ(slider.min, 0);
    EXPECT_EQ(slider.max, 10);
    EXPECT_TRUE(slider.showsValue);
    EXPECT_TRUE(row("PIN").numberPad);
    EXPECT_FALSE(row("Nickname").numberPad);
    EXPECT_TRUE(row("Starred").icon);
    EXPECT_FALSE(row("Ask").icon);
    EXPECT_FALSE(row("Locked").enabled);
    EXPECT_EQ(row("On").key, "on");
}

TEST_F(PageRows, StoreTheOtherStateOnATapOnASwitch) {
    tap("On");
    expectValue("on", Value(true));
    EXPECT_TRUE(row("On").isOn());
    tap("On");
    expectValue("on", Value(false));
    EXPECT_FALSE(row("On").isOn());
}

TEST_F(PageRows, StoreNothingWhenASwitchIsSetToItsOwnState) {
    EXPECT_TRUE(settings().page().setSwitch(pathOf("On"), false));
    EXPECT_FALSE(hasValue("on"));
}

TEST_F(PageRows, StoreASlidersPositionOnRelease) {
    EXPECT_TRUE(settings().page().moveSlider({1, 1}, 2.5));
    expectValue("volume", Value(2.5));
    EXPECT_EQ(page().row({1, 1}).position(), 2.5);
    EXPECT_EQ(page().row({1, 1}).text, "2.5");
}

TEST_F(PageRows, RefuseToMoveASliderBeyondItsRangeOrToTapIt) {
    EXPECT_FALSE(settings().page().moveSlider({1, 1}, 10.5));
    EXPECT_FALSE(settings().page().moveSlider({1, 1}, -1));
    EXPECT_FALSE(settings().page().tapRow({1, 1}));
    EXPECT_FALSE(hasValue("volume"));
}

TEST_F(PageRows, ShowTheChoiceOfALinkListAndMoveItsMark) {
    EXPECT_EQ(row("Flavour").text, "");
    tap("Flavour");
    EXPECT_EQ(page().title(), "Flavour");
    EXPECT_EQ(labels(), (std::vector<std::string>{"Vanilla", "Chocolate"}));
    EXPECT_FALSE(row("Chocolate").marked);
    tap("Chocolate");
    expectValue("flavour", Value("c"));
    EXPECT_TRUE(row("Chocolate").marked);
    tap("Vanilla");
    EXPECT_TRUE(row("Vanilla").marked);
    EXPECT_FALSE(row("Chocolate").marked);
    EXPECT_TRUE(settings().page().goBack());
    EXPECT_EQ(row("Flavour").text, "Van");
}

TEST_F(PageRows, StoreTypedTextAtTheEndOfEditing) {
    type("Nickname", "Tom");
    EXPECT_TRUE(row("Nickname").editing);
    EXPECT_EQ(row("Nickname").text, "Tom");
    EXPECT_FALSE(hasValue("nickname"));
    settings().page().endEditing();
    expectValue("nickname", Value("Tom"));
    EXPECT_FALSE(row("Nickname").editing);
    EXPECT_EQ(row("Nickname").text, "Tom");
}

TEST_F(PageRows, StoreNothingOfAFieldThatWasNotChanged) {
    tap("Nickname");
    EXPECT_TRUE(row("Nickname").editing);
    settings().page().endEditing();
    EXPECT_FALSE(hasValue("nickname"));
}

TEST_F(PageRows, StoreEmptiedTextAsEmpty) {
    type("Nickname", "");
    settings().page().endEditing();
    expectValue("nickname", Value(""));
}

TEST_F(PageRows, EndTheEditingBeforeATapElsewhere) {
    type("Nickname", "Tom");
    tap("Starred");
    expectValue("nickname", Value("Tom"));
    EXPECT_FALSE(row("Nickname").editing);
}

TEST_F(PageRows, KeepEditingOnASecondTapOnTheField) {
    type("Nickname", "Tom");
    tap("Nickname");
    EXPECT_TRUE(row("Nickname").editing);
    EXPECT_FALSE(hasValue("nickname"));
}

TEST_F(PageRows, EndTheEditingWhenTheListIsDragged) {
    type("Nickname", "Tom");
    EXPECT_TRUE(settings().page().dragList());
    expectValue("nickname", Value("Tom"));
    expectValue("dragged", Value(1));
}

TEST_F(PageRows, StoreBeforeThePopWhenThePageIsLeft) {
    type("Nickname", "Tom");
    EXPECT_TRUE(settings().page().goBack());
    expectValue("nickname", Value("Tom"));
}

TEST_F(PageRows, StoreWhenTheApplicationCloses) {
    type("Nickname", "Tom");
    quit();
    expectValue("nickname", Value("Tom"));
}

TEST_F(PageRows, ShowSecureTextAsBullets) {
    type("PIN", "12é");
    EXPECT_EQ(row("PIN").text, "•••");
    settings().page().endEditing();
    EXPECT_EQ(row("PIN").text, "•••");
    expectValue("pin", Value("12é"));
}

TEST_F(PageRows, KeepATextFieldOnOneLine) {
    type("Nickname", "a\nb\tc\x1B[31m\x7F\n");
    EXPECT_EQ(row("Nickname").text, "a b c [31m");
    settings().page().endEditing();
    expectValue("nickname", Value("a b c [31m"));
}

TEST_F(PageRows, RefuseTypingOutsideAField) {
    EXPECT_EQ(settings().page().typeText("x").reason(), "no text field is being edited");
    EXPECT_EQ(settings().page().beginEditing(pathOf("On")).reason(), "the row is not a text field");
}

TEST_F(PageRows, IgnoreATapOnADisabledRow) {
    EXPECT_EQ(settings().page().tapRow(pathOf("Locked")).reason(), "the row is disabled");
    EXPECT_FALSE(hasValue("locked"));
}

TEST_F(PageRows, RefuseATapOnAMissingRow) {
    EXPECT_EQ(settings().page().tapRow({0, 1}).reason(), "there is no such row");
    EXPECT_EQ(settings().page().tapRow({9, 0}).reason(), "there is no such row");
}

TEST_F(PageRows, PerformTheActionOfAButtonAndNoneOfStaticText) {
    tap("Starred");
    expectValue("pressed", Value(1));
    tap("Version 1");
    expectValue("pressed", Value(1));
}

TEST_F(PageRows, PerformTheActionOfTheBarButton) {
    EXPECT_TRUE(settings().page().tapBarButton());
    expectValue("added", Value(1));
}

TEST_F(PageRows, AddARowAtTheEnd) {
    tap("Grow");
    EXPECT_TRUE(hasRow("Grown"));
}

TEST_F(PageRows, AreCoveredByAnAlertUntilAButtonIsChosen) {
    tap("Ask");
    ASSERT_TRUE(settings().screen().alert());
    EXPECT_EQ(settings().page().tapRow(pathOf("Starred")).reason(), "an alert covers the page");
    EXPECT_FALSE(settings().page().goBack());
    EXPECT_FALSE(settings().page().tapBarButton());
    EXPECT_FALSE(settings().page().dragList());
    EXPECT_FALSE(hasValue("pressed"));
    chooseInAlert("Yes");
    expectValue("answered", Value(1));
    EXPECT_FALSE(settings().screen().alert());
}

TEST_F(PageRows, IgnoreADisabledButtonOfAnAlert) {
    tap("Ask");
    EXPECT_EQ(settings().sheets().chooseAlertAction(2).reason(), "the button is disabled");
    EXPECT_EQ(settings().sheets().chooseAlertAction(3).reason(), "the alert has no such button");
    EXPECT_TRUE(settings().screen().alert());
}

TEST_F(PageRows, AcceptTextInTheFieldOfAnAlert) {
    tap("Ask");
    EXPECT_TRUE(settings().sheets().typeIntoAlert(0, "because"));
    EXPECT_EQ(settings().screen().alert()->textFields()[0]->text(), "because");
    EXPECT_FALSE(settings().sheets().typeIntoAlert(1, "x"));
}

TEST_F(PageRows, KeepTheFieldOfAnAlertOnOneLine) {
    tap("Ask");
    EXPECT_TRUE(settings().sheets().typeIntoAlert(0, "be\ncause\r\n"));
    EXPECT_EQ(settings().screen().alert()->textFields()[0]->text(), "be cause");
    EXPECT_TRUE(settings().sheets().typeIntoAlert(0, "\n"));
    EXPECT_EQ(settings().screen().alert()->textFields()[0]->text(), "");
}

TEST_F(PageRows, ReadTheirValuesAgainOnReturningToAPage) {
    type("Nickname", "Tom");
    tap("Table");
    platform::updateFile("/var/mobile/Library/Preferences/test.fixture.plist",
                         [](platform::MutableDictionary& values) {
                             values.set("nickname", Value("Ann"));
                             return true;
                         });
    EXPECT_TRUE(settings().page().goBack());
    EXPECT_EQ(row("Nickname").text, "Ann");
}

TEST_F(PageRows, EndTheProcessOnAnExceptionOfAPage) {
    EXPECT_EXIT((void)settings().page().tapRow(pathOf("Fail")), testing::KilledBySignal(SIGABRT), "");
}
