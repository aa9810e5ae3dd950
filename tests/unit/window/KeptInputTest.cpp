#include "tests/unit/window/WindowFixture.h"

#include <QTest>
#include <gtest/gtest.h>

namespace wardlock::test {

/// Taps and keys of a user who is faster than the pages. The clock is stepped: a page moves until then.
class WindowKeptInput : public WindowFixture {
protected:
    static constexpr double transition = 0.3;

    void openMoving() {
        setAccounts({"Ann"});
        open(transition);
        scene().tap("row:Wardlock");
        scene().item("page:Wardlock");
        ASSERT_TRUE(until([&] { return scene().item("page:Wardlock")->x() == 0; }));
        ASSERT_TRUE(isMoving());
    }
    bool isMoving() { return host().settings().application().screen().isInTransition(); }
    void rest() {
        clock.step(transition);
        scene().settle();
    }
    bool isEnabled() { return document().find("kEnabled")->boolean(); }
    std::string title() { return window().title().toStdString(); }
};

TEST_F(WindowKeptInput, IsATapThatCountsWhenThePageIsInItsPlace) {
    openMoving();
    const bool before = isEnabled();
    scene().tapAt(scene().middleOf("switch:Enabled"));
    EXPECT_EQ(isEnabled(), before);
    rest();
    EXPECT_EQ(isEnabled(), !before);
}

TEST_F(WindowKeptInput, IsATouchThatCountsWhenThePageIsInItsPlace) {
    openMoving();
    const bool before = isEnabled();
    scene().touch("switch:Enabled");
    EXPECT_EQ(isEnabled(), before);
    rest();
    EXPECT_EQ(isEnabled(), !before);
}

TEST_F(WindowKeptInput, OpensPageAfterPageInOrder) {
    openMoving();
    scene().tap("row:Ann");
    scene().tap("back");
    rest();
    EXPECT_EQ(title(), "Ann – Settings");
    EXPECT_TRUE(isMoving());
    rest();
    EXPECT_EQ(title(), "Wardlock – Settings");
    rest();
    EXPECT_FALSE(isMoving());
}

TEST_F(WindowKeptInput, IsAKeyThatCountsWhenThePageIsInItsPlace) {
    openMoving();
    scene().press(Qt::Key_Escape);
    EXPECT_EQ(title(), "Wardlock – Settings");
    rest();
    EXPECT_EQ(title(), "Settings");
}

TEST_F(WindowKeptInput, IsNotTheSecondHalfOfADoubleClick) {
    openMoving();
    const bool before = isEnabled();
    QTest::mouseDClick(&window(), Qt::LeftButton, {}, scene().middleOf("switch:Enabled").toPoint());
    rest();
    // Its first half is a tap.
    EXPECT_EQ(isEnabled(), !before);
}

TEST_F(WindowKeptInput, IsNoDrag) {
    openMoving();
    const bool before = isEnabled();
    const QPointF place = scene().middleOf("switch:Enabled");
    scene().drag(place, place + QPointF(0, 60));
    rest();
    EXPECT_EQ(isEnabled(), before);
    scene().tap("switch:Enabled");
    EXPECT_EQ(isEnabled(), !before);
}

TEST_F(WindowKeptInput, IsAShortcutThatCountsWhenThePageIsInItsPlace) {
    openMoving();
    rest();
    const bool before = isEnabled();
    scene().tap("switch:Enabled");
    ASSERT_NE(isEnabled(), before);
    scene().tap("row:Ann");
    ASSERT_TRUE(isMoving());
    scene().press(Qt::Key_Left, Qt::AltModifier);
    scene().press(Qt::Key_Z, Qt::ControlModifier);
    rest();
    EXPECT_EQ(title(), "Wardlock – Settings");
    rest();
    EXPECT_EQ(isEnabled(), before);
    scene().tap("row:Ann");
    scene().press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    for (int step = 0; step < 3; ++step)
        rest();
    EXPECT_NE(isEnabled(), before);
}

} // namespace wardlock::test
