#include "tests/unit/window/WindowFixture.h"

#include <QGuiApplication>
#include <gtest/gtest.h>

namespace wardlock::test {

class WindowDirection : public WindowFixture {};

TEST_F(WindowDirection, FollowsTheTextOnTheChangeLog) {
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    openWardlock();
    scene().reveal("row:Change Log");
    scene().tap("row:Change Log");
    scene().item("page:Change Log");
    EXPECT_EQ(scene().item("words")->property("effectiveHorizontalAlignment").toInt(), Qt::AlignLeft);
}

} // namespace wardlock::test
