#include "cli/fullscreen/TextLayout.h"

#include <gtest/gtest.h>

#include <string>

namespace wardlock::cli {
namespace {

std::string linesOf(const std::string& text, std::size_t columns) {
    std::string lines;
    const TextLayout layout(text, columns);
    for (const auto& [begin, end] : layout.lines())
        lines += '[' + text.substr(begin, end - begin) + ']';
    return lines;
}

TEST(TextLayout, BreaksAtLineFeedsAndAfterBlanks) {
    EXPECT_EQ(linesOf("", 10), "[]");
    EXPECT_EQ(linesOf("one\n\ntwo", 10), "[one][][two]");
    EXPECT_EQ(linesOf("one two three", 8), "[one two ][three]");
    EXPECT_EQ(linesOf("abcdefgh", 3), "[abc][def][gh]");
    EXPECT_EQ(linesOf("中文字", 4), "[中文][字]");
}

TEST(TextLayout, KnowsThePlaceOfEachByte) {
    const std::string text = "one two three\nfour";
    const TextLayout layout(text, 8);
    EXPECT_EQ(layout.place(0), (Point{0, 0}));
    EXPECT_EQ(layout.place(8), (Point{1, 0}));
    EXPECT_EQ(layout.place(13), (Point{1, 5}));
    EXPECT_EQ(layout.place(14), (Point{2, 0}));
    EXPECT_EQ(layout.place(text.size()), (Point{2, 4}));
}

TEST(TextLayout, FindsTheByteNearestToAColumn) {
    const std::string text = "one two three\nfour";
    const TextLayout layout(text, 8);
    EXPECT_EQ(layout.position({0, 2}), 2U);
    EXPECT_EQ(layout.position({0, 50}), 7U) << "before the break";
    EXPECT_EQ(layout.position({1, 50}), 13U);
    EXPECT_EQ(layout.position({9, 1}), 15U) << "in the last line";
    EXPECT_EQ(TextLayout("a中b", 10).position({0, 2}), 1U) << "within a wide character";
}

} // namespace
} // namespace wardlock::cli
