#include "tests/unit/window/WindowFixture.h"

#include <QGuiApplication>
#include <gtest/gtest.h>

namespace wardlock::test {

class WindowNavigation : public WindowFixture {
protected:
    static constexpr double transition = 0.3;

    void openSlowly() {
        open(transition);
        scene().tap("row:Wardlock");
    }
    QQuickItem* wardlockPage() { return scene().item("page:Wardlock"); }
    void finishPush() {
        clock.step(transition);
        EXPECT_TRUE(until([&] { return wardlockPage()->x() == 0; }));
    }
};

TEST_F(WindowNavigation, ShowsShortTitlesWhole) {
    const auto isWhole = [this](const char* title) {
        return scene().text("title") == title && !scene().item("title")->property("truncated").toBool();
    };
    openAccount();
    scene().tap("row:Apps");
    EXPECT_TRUE(until([&] { return isWhole("Apps"); }));
    scene().tap("back");
    scene().tap("back");
    EXPECT_TRUE(until([&] { return isWhole("Wardlock"); }));
    scene().tap("row:Change Log");
    EXPECT_TRUE(until([&] { return isWhole("Change Log"); }));
    scene().tap("back");
    scene().tap("back");
    EXPECT_TRUE(until([&] { return isWhole("Settings"); }));
}

TEST_F(WindowNavigation, SlidesAPageInAndTheOneBelowAside) {
    openSlowly();
    EXPECT_GT(wardlockPage()->x(), 0);
    EXPECT_TRUE(scene().shows("page:Settings"));
    EXPECT_TRUE(until([&] { return wardlockPage()->x() == 0; }));
    clock.step(transition);
    scene().expectGone("page:Settings");
}

TEST_F(WindowNavigation, SlidesAPageOut) {
    openSlowly();
    finishPush();
    scene().tap("back");
    EXPECT_TRUE(until([&] { return wardlockPage() && wardlockPage()->x() > 0; }));
    EXPECT_TRUE(scene().shows("page:Settings"));
    clock.step(transition);
    scene().expectGone("page:Wardlock");
    EXPECT_EQ(scene().item("page:Settings")->x(), 0);
}

TEST_F(WindowNavigation, IgnoresATapWhileItSlides) {
    openSlowly();
    EXPECT_TRUE(until([&] { return wardlockPage()->x() == 0; }));
    scene().tap("row:Change Log");
    EXPECT_FALSE(scene().shows("page:Change Log"));
    clock.step(transition);
    scene().tap("row:Change Log");
    scene().item("page:Change Log");
}

TEST_F(WindowNavigation, GoesBackByASwipeFromTheEdge) {
    openSlowly();
    finishPush();
    scene().touchDrag({8, 400}, {330, 400});
    clock.step(transition);
    scene().expectGone("page:Wardlock");
    EXPECT_TRUE(scene().shows("page:Settings"));
}

TEST_F(WindowNavigation, StaysAfterAShortSwipe) {
    openSlowly();
    finishPush();
    scene().touchDrag({8, 400}, {90, 400});
    EXPECT_TRUE(until([&] { return wardlockPage()->x() == 0; }));
    clock.step(transition);
    scene().tap("row:Change Log");
    clock.step(transition);
    scene().item("page:Change Log");
}

TEST_F(WindowNavigation, GoesBackByTheKeyboard) {
    openWardlock();
    scene().press(Qt::Key_Escape);
    scene().expectGone("page:Wardlock");
    scene().tap("row:Wardlock");
    scene().item("page:Wardlock");
    scene().press(Qt::Key_Left, Qt::AltModifier);
    scene().expectGone("page:Wardlock");
    scene().press(Qt::Key_Escape);
    scene().settle();
    EXPECT_TRUE(scene().shows("page:Settings"));
}

TEST_F(WindowNavigation, ReturnsTheKeyboardToTheTappedRow) {
    openWardlock();
    scene().item("row:Change Log")->forceActiveFocus();
    scene().press(Qt::Key_Return);
    scene().item("page:Change Log");
    scene().press(Qt::Key_Escape);
    scene().expectGone("page:Change Log");
    EXPECT_TRUE(scene().item("row:Change Log")->hasActiveFocus());
}

TEST_F(WindowNavigation, KeepsScrollingAfterTheFingerIsLifted) {
    openAccount();
    auto* list = scene().item("list");
    const double top = list->property("contentY").toDouble();
    bool keepsScrolling = false;
    // A busy machine may be a slow finger.
    for (int swipes = 0; swipes < 20 && !keepsScrolling; ++swipes) {
        list->setProperty("contentY", top);
        scene().touchDrag({195, 600}, {195, 400});
        const double released = list->property("contentY").toDouble();
        EXPECT_GT(released, top);
        EXPECT_TRUE(until([&] {
            keepsScrolling = list->property("contentY").toDouble() > released + 20;
            return keepsScrolling || !list->property("moving").toBool();
        }));
    }
    EXPECT_TRUE(keepsScrolling);
}

TEST_F(WindowNavigation, ScrollsByTheWheelWithoutTapping) {
    openAccount();
    auto* list = scene().item("list");
    const double start = list->property("contentY").toDouble();
    scene().wheel("list", -240);
    EXPECT_TRUE(until([&] { return list->property("contentY").toDouble() > start; }));
    EXPECT_EQ(scene().text("title"), "Default");
}

TEST_F(WindowNavigation, DoesNotTapARowThatIsDragged) {
    openWardlock();
    const QPointF row = scene().middleOf("row:Change Log");
    scene().touchDrag(row, row - QPointF(0, 120));
    scene().settle();
    EXPECT_EQ(scene().text("title"), "Wardlock");
}

TEST_F(WindowNavigation, MovesTheKeyboardThroughTheRowsInTheirOrder) {
    setAccounts({"Anna"});
    openWardlock();
    std::vector<std::string> order;
    for (int step = 0; step < 10; ++step) {
        scene().press(Qt::Key_Tab);
        order.push_back(window().activeFocusItem()->objectName().toStdString());
    }
    EXPECT_EQ(order, (std::vector<std::string>{"switch:Enabled", "row:Passcode", "row:Anna", "row:@TavixCo",
                                               "row:support@tavix.example", "row:Change Log",
                                               "row:More From Tavix", "back", "search:open", "add"}));
    scene().press(Qt::Key_Backtab);
    scene().press(Qt::Key_Backtab);
    scene().press(Qt::Key_Backtab);
    EXPECT_EQ(window().activeFocusItem()->objectName(), "row:More From Tavix");
    scene().press(Qt::Key_Up);
    EXPECT_EQ(window().activeFocusItem()->objectName(), "row:Change Log");
}

TEST_F(WindowNavigation, ScrollsToTheRowOfTheKeyboard) {
    openAccount();
    for (int step = 0; step < 20; ++step)
        scene().press(Qt::Key_Down);
    EXPECT_EQ(window().activeFocusItem()->objectName(), "row:Delete Account");
    const auto* row = scene().item("row:Delete Account");
    ASSERT_TRUE(row);
    EXPECT_TRUE(row->hasActiveFocus());
    EXPECT_LE(row->mapToScene({0, row->height()}).y(), window().height());
}

TEST_F(WindowNavigation, JumpsToTheEndsOfAListByKey) {
    openAccount();
    scene().press(Qt::Key_End);
    EXPECT_EQ(window().activeFocusItem()->objectName(), "row:Delete Account");
    EXPECT_TRUE(scene().item("list")->property("atYEnd").toBool());
    scene().press(Qt::Key_Home);
    EXPECT_EQ(window().activeFocusItem()->objectName(), "switch:Enabled");
    EXPECT_TRUE(scene().item("list")->property("atYBeginning").toBool());
}

TEST_F(WindowNavigation, TurnsThePagesOfAListByKey) {
    const auto isInSight = [this](const QQuickItem* row) {
        const auto* list = scene().item("list");
        const double top = row->mapToItem(list, {0, 0}).y();
        return top >= 0 && top + row->height() <= list->height();
    };
    openAccount();
    scene().press(Qt::Key_Down);
    const auto first = window().activeFocusItem()->objectName();
    scene().press(Qt::Key_PageDown);
    const double turned = scene().item("list")->property("contentY").toDouble();
    EXPECT_GT(turned, 400);
    EXPECT_NE(window().activeFocusItem()->objectName(), first);
    EXPECT_TRUE(isInSight(window().activeFocusItem()));
    for (int page = 0; page < 3; ++page)
        scene().press(Qt::Key_PageUp);
    EXPECT_EQ(window().activeFocusItem()->objectName(), first);
    EXPECT_TRUE(scene().item("list")->property("atYBeginning").toBool());
}

TEST_F(WindowNavigation, MirrorsFromRightToLeft) {
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    openSlowly();
    EXPECT_LT(wardlockPage()->x(), 0);
    finishPush();
    EXPECT_GT(scene().middleOf("back").x(), 195);
    EXPECT_LT(scene().middleOf("add").x(), 195);
    EXPECT_LT(scene().middleOf("switch:Enabled").x(), 195);
    scene().touchDrag({382, 400}, {40, 400});
    clock.step(transition);
    scene().expectGone("page:Wardlock");
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(WindowNavigation, MirrorsTheLinesBetweenRows) {
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    openWardlock();
    const auto* row = scene().item("row:Enabled");
    const QPoint line = row->mapToScene({row->width() / 2, row->height() - 1}).toPoint();
    EXPECT_TRUE(until([&] { return window().grabWindow().pixelColor(line).lightness() < 220; }));
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(WindowNavigation, MirrorsTheMailSheet) {
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    openWardlock();
    scene().tap("row:support@tavix.example");
    EXPECT_GT(scene().middleOf("mail:cancel").x(), 195);
    EXPECT_LT(scene().middleOf("mail:send").x(), 195);
    EXPECT_GT(scene().item("mail:To:")->width(), 195);
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

} // namespace wardlock::test
