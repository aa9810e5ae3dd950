#include "tests/unit/window/WindowFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {

class WindowNotices : public WindowFixture {};

TEST_F(WindowNotices, DescribeTheirTextAndOnlyTheButtonsThatAreShown) {
    open();
    host().settings().showProblems({"first thing"});
    auto* notice = scene().accessible("notice");
    EXPECT_EQ(notice->role(), QAccessible::Notification);
    ASSERT_EQ(notice->childCount(), 2);
    EXPECT_EQ(notice->child(0)->role(), QAccessible::StaticText);
    EXPECT_EQ(notice->child(0)->text(QAccessible::Name), QStringLiteral("First thing."));
    EXPECT_EQ(notice->child(1)->text(QAccessible::Name), QStringLiteral("OK"));
}

} // namespace wardlock::test
