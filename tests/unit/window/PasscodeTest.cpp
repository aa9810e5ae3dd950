#include "settings/Keys.h"
#include "tests/unit/window/WindowFixture.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>

#include <cmath>

namespace wardlock::test {

class WindowPasscode : public WindowFixture {
protected:
    void setPasscode(std::string_view passcode) const {
        setAccounts({"Anna"});
        platform::MutableDictionary document(this->document());
        document.set(kPasscode, passcode);
        writeDocument(document.copy());
    }
    void openKeypad() {
        openWardlock();
        scene().tap("row:Passcode");
        clock.step(fade);
        scene().item("keypad:status");
    }
    std::string passcode() const { return std::string(document().find(kPasscode)->string()); }
    QQuickItem* pad() { return scene().item("keypad"); }

    static constexpr double fade = 0.4;
};

TEST_F(WindowPasscode, IsSetByTapsOnTheKeys) {
    openKeypad();
    const auto other = listen();
    EXPECT_EQ(scene().text("keypad:status"), "Enter New Passcode");
    for (const char* key : {"key:1", "key:2", "key:3", "key:4"})
        scene().tap(key);
    EXPECT_EQ(passcode(), "1234");
    EXPECT_EQ(other->readLine(), "kPasscode = 1234; account (null); tweak 0");
    clock.step(fade);
    scene().expectGone("keypad:status");
}

TEST_F(WindowPasscode, IsSetByTouch) {
    openKeypad();
    for (const char* key : {"key:0", "key:9", "key:8", "key:7"})
        scene().touch(key);
    EXPECT_EQ(passcode(), "0987");
}

TEST_F(WindowPasscode, AcceptsDigitsOfTheKeyboardFromTheFirstMoment) {
    openWardlock();
    scene().tap("row:Passcode");
    scene().type("4711");
    EXPECT_EQ(passcode(), "4711");
}

TEST_F(WindowPasscode, AcceptsAPressedKeyAsOneDigit) {
    openKeypad();
    QTest::keyPress(&window(), Qt::Key_1);
    for (int repeat = 0; repeat < 5; ++repeat) {
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_1, Qt::NoModifier, QStringLiteral("1"), true);
        QCoreApplication::sendEvent(&window(), &repeated);
    }
    QTest::keyRelease(&window(), Qt::Key_1);
    EXPECT_EQ(passcode(), "");
    scene().type("234");
    EXPECT_EQ(passcode(), "1234");
}

TEST_F(WindowPasscode, DeletesTheLastDigit) {
    openKeypad();
    scene().type("12");
    scene().tap("keypad:delete");
    scene().press(Qt::Key_Backspace);
    scene().type("5678");
    EXPECT_EQ(passcode(), "5678");
}

TEST_F(WindowPasscode, AsksForTheCurrentOneFirst) {
    setPasscode("1111");
    openKeypad();
    EXPECT_EQ(scene().text("keypad:status"), "Enter Current Passcode");
    scene().type("1111");
    EXPECT_EQ(scene().text("keypad:status"), "Enter New Passcode");
    scene().type("2222");
    EXPECT_EQ(passcode(), "2222");
}

TEST_F(WindowPasscode, KeepsItsDigitsWhileAnotherProcessChangesTheAccounts) {
    openKeypad();
    scene().type("12");
    setAccounts({"Cleo"});
    announce();
    scene().item("row:Cleo");
    scene().type("34");
    EXPECT_EQ(passcode(), "1234");
}

TEST_F(WindowPasscode, ShakesOnAWrongEntry) {
    setPasscode("1111");
    openKeypad();
    scene().type("9999");
    EXPECT_TRUE(until([&] { return pad()->property("shakeOffset").toDouble() != 0; }));
    EXPECT_TRUE(until([&] { return pad()->property("shakeOffset").toDouble() == 0; }));
    EXPECT_EQ(scene().text("keypad:status"), "Enter Current Passcode");
}

TEST_F(WindowPasscode, ClosesAfterTheFourthWrongEntry) {
    setPasscode("1111");
    openKeypad();
    for (int attempt = 0; attempt < 4; ++attempt)
        scene().type("9999");
    clock.step(fade);
    scene().expectGone("keypad:status");
    EXPECT_EQ(passcode(), "1111");
}

TEST_F(WindowPasscode, IsCancelledByItsButtonAndByEscape) {
    openKeypad();
    scene().tap("keypad:cancel");
    clock.step(fade);
    scene().expectGone("keypad:status");
    scene().tap("row:Passcode");
    clock.step(fade);
    scene().press(Qt::Key_Escape);
    clock.step(fade);
    scene().expectGone("keypad:status");
    EXPECT_EQ(passcode(), "");
    EXPECT_EQ(scene().text("title"), "Wardlock");
}

TEST_F(WindowPasscode, FadesInAndOut) {
    openWardlock();
    scene().tap("row:Passcode");
    clock.step(0.2);
    EXPECT_TRUE(until([&] {
        const double opacity = pad() ? pad()->opacity() : 0;
        return opacity > 0.2 && opacity < 0.8;
    }));
    clock.step(0.2);
    EXPECT_TRUE(until([&] { return pad()->opacity() == 1; }));
    scene().press(Qt::Key_Escape);
    clock.step(0.2);
    EXPECT_TRUE(until([&] { return pad()->opacity() < 0.8; }));
    scene().type("1234");
    clock.step(0.2);
    scene().expectGone("keypad:status");
    EXPECT_EQ(passcode(), "");
}

TEST_F(WindowPasscode, CoversThePageForEveryInput) {
    openWardlock();
    const QPointF row = scene().middleOf("switch:Enabled");
    scene().tap("row:Passcode");
    clock.step(fade);
    scene().tapAt(row);
    scene().press(Qt::Key_Tab);
    scene().press(Qt::Key_Space);
    EXPECT_TRUE(document().find(kEnabled)->boolean());
}

TEST_F(WindowPasscode, ClosesWhenTheApplicationLosesTheFocus) {
    openKeypad();
    host().settings().resignActive();
    clock.step(fade);
    scene().expectGone("keypad:status");
}

TEST_F(WindowPasscode, ClosesWhenTheApplicationBecomesInactive) {
    openKeypad();
    scene().type("12");
    emit qGuiApp->applicationStateChanged(Qt::ApplicationActive);
    clock.step(fade);
    EXPECT_TRUE(scene().shows("keypad:status"));
    emit qGuiApp->applicationStateChanged(Qt::ApplicationInactive);
    scene().type("34");
    clock.step(fade);
    scene().expectGone("keypad:status");
    EXPECT_EQ(passcode(), "");
}

TEST_F(WindowPasscode, ClosesAlsoWhenTheApplicationWasActiveBeforeTheWindow) {
    QWindow other;
    other.show();
    other.requestActivate();
    ASSERT_TRUE(until([] { return QGuiApplication::applicationState() == Qt::ApplicationActive; }));
    openKeypad();
    emit qGuiApp->applicationStateChanged(Qt::ApplicationInactive);
    clock.step(fade);
    scene().expectGone("keypad:status");
}

TEST_F(WindowPasscode, FitsASmallWindowAndLargeLetters) {
    setPasscode("1111");
    open(0, {280, 360});
    host().appearance().forceTextScale(2);
    scene().tap("row:Wardlock");
    scene().reveal("row:Passcode");
    scene().tap("row:Passcode");
    clock.step(fade);
    EXPECT_EQ(scene().item("keypad:status")->property("truncated"), false);
    const auto* cancel = scene().item("keypad:cancel")->childItems().constFirst();
    EXPECT_EQ(cancel->property("truncated"), false);
    // The digits are in the middle, below what is asked and what is entered.
    for (const char* name : {"keypad:status", "keypad:dots", "key:2", "key:8", "key:0"})
        EXPECT_NEAR(scene().middleOf(name).x(), 140, 1) << name;
    EXPECT_LE(scene().item("key:0")->mapToScene({0, scene().item("key:0")->height()}).y(), 360);
}

TEST_F(WindowPasscode, ReturnsTheKeyboardToThePage) {
    openWardlock();
    scene().item("row:Passcode")->forceActiveFocus();
    scene().press(Qt::Key_Return);
    clock.step(fade);
    scene().press(Qt::Key_Escape);
    clock.step(fade);
    scene().expectGone("keypad:status");
    EXPECT_TRUE(until([&] { return scene().item("row:Passcode")->hasActiveFocus(); }));
}

TEST_F(WindowPasscode, CoversADarkBlurOfThePage) {
    openKeypad();
    const QImage covered = window().grabWindow();
    ASSERT_FALSE(covered.isNull());
    EXPECT_TRUE(until([&] { return window().grabWindow().pixelColor(4, 4).lightness() < 128; }));
    // A blur: no neighbours differ much outside the keypad.
    EXPECT_TRUE(until([&] {
        const QImage picture = window().grabWindow();
        int steepest = 0;
        for (int y = 1; y < picture.height(); ++y)
            steepest =
                std::max(steepest, std::abs(qGray(picture.pixel(6, y)) - qGray(picture.pixel(6, y - 1))));
        return steepest < 24;
    }));
}

} // namespace wardlock::test
