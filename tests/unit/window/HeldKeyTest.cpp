#include "settings/Keys.h"
#include "tests/support/FixtureValues.h"
#include "tests/unit/window/WindowFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {

/// A key that is held down, which the desktop repeats.
class WindowHeldKey : public WindowFixture {
protected:
    /// Presses the key and repeats it before it is released.
    void hold(Qt::Key key, const QString& text = {}, int repetitions = 1) {
        for (int i = 0; i <= repetitions; ++i) {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text, i > 0);
            QCoreApplication::sendEvent(&window(), &press);
        }
        QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(&window(), &release);
    }
    void holdOn(const QString& name, Qt::Key key, const QString& text = {}) {
        scene().item(name)->forceActiveFocus();
        hold(key, text);
    }
    bool isEnabled() const { return platform::boolValue(document().find(kEnabled)); }
};

TEST_F(WindowHeldKey, FlipsASwitchOnce) {
    openWardlock();
    const bool before = isEnabled();
    for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        holdOn("switch:Enabled", key);
        EXPECT_NE(isEnabled(), before) << key;
        scene().press(key);
        EXPECT_EQ(isEnabled(), before) << key;
    }
}

TEST_F(WindowHeldKey, PressesARowOnce) {
    openFixtureBundle();
    holdOn("row:Starred", Qt::Key_Space, QStringLiteral(" "));
    EXPECT_EQ(fixtureValues().find("pressed")->integer(), 1);
}

TEST_F(WindowHeldKey, PressesAButtonOnce) {
    openFixtureBundle();
    holdOn("add", Qt::Key_Return, QStringLiteral("\r"));
    EXPECT_EQ(fixtureValues().find("added")->integer(), 1);
}

TEST_F(WindowHeldKey, TypesNothingIntoTheAlertThatItOpened) {
    openWardlock();
    holdOn("add", Qt::Key_Space, QStringLiteral(" "));
    const auto* field = scene().item("alert:field");
    EXPECT_EQ(field->property("input").value<QObject*>()->property("text").toString(), QString());
    scene().type("Tom");
    EXPECT_EQ(field->property("input").value<QObject*>()->property("text").toString(), QStringLiteral("Tom"));
}

TEST_F(WindowHeldKey, PressesNothingOnThePageToWhichItLed) {
    openWardlock();
    holdOn("row:Default", Qt::Key_Return, QStringLiteral("\r"));
    scene().item("page:Default");
    holdOn("back", Qt::Key_Return, QStringLiteral("\r"));
    EXPECT_EQ(window().title(), QStringLiteral("Wardlock – Settings"));
}

TEST_F(WindowHeldKey, GoesOnMovingTheFocus) {
    openWardlock();
    scene().item("switch:Enabled")->forceActiveFocus();
    hold(Qt::Key_Down);
    EXPECT_EQ(window().activeFocusItem()->objectName(), QStringLiteral("row:Default"));
}

TEST_F(WindowHeldKey, GoesOnTypingIntoTheFieldInWhichItWentDown) {
    openAccount();
    scene().tap("field:Account Name");
    hold(Qt::Key_X, QStringLiteral("x"), 2);
    EXPECT_EQ(scene().text("field:Account Name"), "Defaultxxx");
}

/// The Enter of the keypad does what Return does.
class WindowEnterKey : public WindowFixture {
protected:
    void enterOn(const QString& name) {
        scene().item(name)->forceActiveFocus();
        scene().press(Qt::Key_Enter, Qt::KeypadModifier);
    }
};

TEST_F(WindowEnterKey, PressesTheButtonsOfTheBar) {
    openWardlock();
    enterOn("add");
    scene().item("alert");
    scene().press(Qt::Key_Escape);
    scene().expectGone("alert");
    enterOn("back");
    EXPECT_EQ(window().title(), QStringLiteral("Settings"));
}

TEST_F(WindowEnterKey, OpensAndEmptiesTheSearch) {
    openWardlock();
    enterOn("search:open");
    scene().item("search");
    scene().type("pass");
    enterOn("search:clear");
    EXPECT_EQ(scene().text("search"), "");
}

} // namespace wardlock::test
