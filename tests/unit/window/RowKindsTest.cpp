#include "tests/support/FixtureValues.h"
#include "tests/unit/window/WindowFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {

/// A bundle with a row of every kind.
class WindowRowKinds : public WindowFixture {
protected:
    std::string stored(std::string_view key) const {
        const auto values = fixtureValues();
        const auto text = platform::stringValue(values.find(key));
        return std::string(text.value_or("(none)"));
    }
    long long count(std::string_view key) const {
        const auto values = fixtureValues();
        const auto* value = values.find(key);
        return value ? value->integer() : 0;
    }
};

TEST_F(WindowRowKinds, StoreASwitch) {
    openFixtureBundle();
    scene().tap("switch:On");
    const auto values = fixtureValues();
    EXPECT_TRUE(platform::boolValue(values.find("on")));
}

TEST_F(WindowRowKinds, StoreASliderOnRelease) {
    openFixtureBundle();
    auto* slider = scene().item("slider:");
    const double y = scene().middleOf("slider:").y();
    const double left = slider->mapToScene({14, 0}).x();
    const double right = slider->mapToScene({slider->width() - 14, 0}).x();
    scene().drag({left, y}, {right + 40, y});
    EXPECT_EQ(platform::floatValue(fixtureValues().find("volume")), 10);
    EXPECT_TRUE(scene().showsText("10.00"));
    // The number beside it has grown.
    scene().tapAt({scene().middleOf("slider:").x(), y});
    EXPECT_NEAR(platform::floatValue(fixtureValues().find("volume")), 5, 0.2);
}

TEST_F(WindowRowKinds, MoveASliderByTheKeyboard) {
    openFixtureBundle();
    scene().item("slider:")->forceActiveFocus();
    scene().press(Qt::Key_Right);
    EXPECT_NEAR(platform::floatValue(fixtureValues().find("volume")), 0.5, 0.001);
    scene().press(Qt::Key_Left);
    EXPECT_NEAR(platform::floatValue(fixtureValues().find("volume")), 0, 0.001);
}

TEST_F(WindowRowKinds, ChooseFromALinkList) {
    openFixtureBundle();
    scene().tap("row:Flavour");
    scene().tap("row:Chocolate");
    EXPECT_EQ(stored("flavour"), "c");
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(scene().item("row:Chocolate"))->state().checked);
    scene().press(Qt::Key_Escape);
    scene().item("row:Flavour");
    EXPECT_TRUE(until([&] { return scene().showsText("Choc") || scene().showsText("Chocolate"); }));
}

TEST_F(WindowRowKinds, KeepTwoFieldsApart) {
    openFixtureBundle();
    scene().tap("field:Nickname");
    scene().type("Bob");
    scene().press(Qt::Key_Tab);
    EXPECT_TRUE(scene().item("field:PIN")->hasActiveFocus());
    EXPECT_EQ(stored("nickname"), "Bob");
    scene().type("12");
    scene().tap("field:Nickname");
    EXPECT_EQ(stored("pin"), "12");
    EXPECT_EQ(scene().text("field:Nickname"), "Bob");
}

TEST_F(WindowRowKinds, HideSecretText) {
    openFixtureBundle();
    scene().tap("field:PIN");
    scene().type("1234");
    EXPECT_EQ(scene().text("field:PIN", "displayText"), "\u25cf\u25cf\u25cf\u25cf");
    scene().press(Qt::Key_Return);
    EXPECT_EQ(stored("pin"), "1234");
    EXPECT_EQ(scene().text("field:PIN").find("1234"), std::string::npos);
}

TEST_F(WindowRowKinds, IgnoreATapOnADisabledSwitch) {
    openFixtureBundle();
    scene().tap("switch:Locked");
    EXPECT_EQ(fixtureValues().find("locked"), nullptr);
}

TEST_F(WindowRowKinds, PressAButtonAndTheBar) {
    openFixtureBundle();
    scene().tap("row:Starred");
    EXPECT_EQ(count("pressed"), 1);
    scene().tap("add");
    EXPECT_EQ(count("added"), 1);
}

TEST_F(WindowRowKinds, AskWithADisabledActionAndAField) {
    openFixtureBundle();
    scene().tap("row:Ask");
    scene().item("alert:field");
    scene().tap("alert:Never");
    EXPECT_TRUE(scene().shows("alert"));
    scene().tap("alert:Yes");
    scene().expectGone("alert");
    EXPECT_EQ(count("answered"), 1);
}

TEST_F(WindowRowKinds, ShowARowThatIsAdded) {
    openFixtureBundle();
    scene().reveal("row:Grow");
    scene().tap("row:Grow");
    EXPECT_TRUE(scene().reveal("row:Grown"));
}

TEST_F(WindowRowKinds, ShowATableOfTheBundle) {
    openFixtureBundle();
    scene().reveal("row:Table");
    scene().tap("row:Table");
    scene().item("cell:row.0");
    scene().tap("switch:row.1");
    EXPECT_TRUE(scene().item("switch:row.1")->property("on").toBool());
}

TEST_F(WindowRowKinds, FilterByTheSearchThatIsPulledDown) {
    openFixtureBundle();
    scene().touchDrag({195, 120}, {195, 420});
    scene().item("search");
    EXPECT_TRUE(scene().item("search")->hasActiveFocus());
    scene().type("star");
    EXPECT_TRUE(until([&] { return scene().namesWith("row:") == std::vector<std::string>{"Starred"}; }));
    scene().tap("row:Starred");
    EXPECT_EQ(count("pressed"), 1);
    const auto* cancel = scene().item("search:cancel");
    // The field slides open, and its button can be touched once it has.
    EXPECT_TRUE(until([&] { return cancel->parentItem()->height() >= cancel->height(); }));
    scene().tap("search:cancel");
    EXPECT_TRUE(until([&] { return scene().namesWith("row:").size() > 5; }));
    scene().expectGone("search");
}

TEST_F(WindowRowKinds, ShowThatTheSearchFindsNothing) {
    openFixtureBundle();
    scene().press(Qt::Key_F, Qt::ControlModifier);
    scene().type("zzz");
    EXPECT_TRUE(until([&] { return scene().showsText("Nothing found"); }));
}

} // namespace wardlock::test
