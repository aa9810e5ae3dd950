#include "cli/fullscreen/MouseReport.h"

#include <gtest/gtest.h>

namespace wardlock::cli {
namespace {

TEST(MouseReport, NamesTheCellOfAPressAndARelease) {
    const auto press = mouseKey("<0;10;5M");
    ASSERT_TRUE(press);
    EXPECT_EQ(press->kind, KeyKind::MousePress);
    EXPECT_EQ(press->point, (Point{4, 9}));
    EXPECT_EQ(mouseKey("<0;10;5m")->kind, KeyKind::MouseRelease);
    EXPECT_EQ(mouseKey("<64;1;1M")->kind, KeyKind::WheelUp);
    EXPECT_EQ(mouseKey("<65;1;1M")->kind, KeyKind::WheelDown);
    EXPECT_EQ(mouseKey("<4;1;1M")->kind, KeyKind::MousePress) << "with Shift";
}

TEST(MouseReport, ReadsTheOlderForm) {
    const auto press = mouseKey("M *%");
    ASSERT_TRUE(press);
    EXPECT_EQ(press->kind, KeyKind::MousePress);
    EXPECT_EQ(press->point, (Point{4, 9}));
    EXPECT_EQ(mouseKey("M#*%")->kind, KeyKind::MouseRelease);
    EXPECT_EQ(mouseKey("M`*%")->kind, KeyKind::WheelUp);
}

TEST(MouseReport, IsNothingForOtherButtonsAndForNoise) {
    for (const char* report : {"", "M", "M  ", "M   ", "<", "<M", "<0;1M", "<0;1;0M", "<0;0;1M", "<2;1;1M",
                               "<0;1;1;1M", "<a;1;1M", "<0;1;99999999999M", "A"})
        EXPECT_FALSE(mouseKey(report)) << report;
}

} // namespace
} // namespace wardlock::cli
