#include "tests/support/FixtureValues.h"
#include "tests/unit/window/WindowFixture.h"

#include <QTest>
#include <QTouchEvent>
#include <gtest/gtest.h>

namespace wardlock::test {

/// A touch that the desktop takes away, for a gesture of its own for example.
class WindowCancelledTouch : public WindowFixture {
protected:
    void dragAndCancel(QPointF from, QPointF to) {
        static QPointingDevice* const finger = QTest::createTouchDevice();
        constexpr int steps = 8;
        QTest::touchEvent(&window(), finger).press(0, from.toPoint());
        for (int step = 1; step <= steps; ++step) {
            QTest::touchEvent(&window(), finger).move(0, (from + (to - from) * step / steps).toPoint());
            scene().frame();
        }
        QTouchEvent cancel(QEvent::TouchCancel, finger);
        QCoreApplication::sendEvent(&window(), &cancel);
        scene().settle();
    }
};

TEST_F(WindowCancelledTouch, IsNoSwipeBack) {
    constexpr double transition = 0.3;
    open(transition);
    scene().tap("row:Wardlock");
    clock.step(transition);
    scene().settle();
    const auto* page = scene().item("page:Wardlock");
    dragAndCancel({8, 400}, {350, 400});
    EXPECT_EQ(window().title(), QStringLiteral("Wardlock – Settings"));
    EXPECT_TRUE(until([&] { return page->x() == 0; }));
    scene().touchDrag({8, 400}, {350, 400});
    clock.step(transition);
    scene().expectGone("page:Wardlock");
}

TEST_F(WindowCancelledTouch, DoesNotMoveASlider) {
    openFixtureBundle();
    const auto* slider = scene().item("slider:");
    const double y = scene().middleOf("slider:").y();
    const double left = slider->mapToScene({14, 0}).x();
    const double right = slider->mapToScene({slider->width() - 14, 0}).x();
    dragAndCancel({left, y}, {right + 40, y});
    EXPECT_EQ(fixtureValues().find("volume"), nullptr);
    EXPECT_TRUE(until([&] { return slider->property("shown") == slider->property("position"); }));
    scene().touchDrag({left, y}, {right + 40, y});
    EXPECT_TRUE(until([&] { return platform::floatValue(fixtureValues().find("volume")) == 10; }));
}

} // namespace wardlock::test
