#include "cli/TextWidth.h"

#include <gtest/gtest.h>

using namespace wardlock::cli;
using Lines = std::vector<std::string>;

TEST(TextWidth, CountsColumnsAndNotBytes) {
    EXPECT_EQ(columnsOf("abc"), 3U);
    EXPECT_EQ(columnsOf("Jürgen"), 6U);
    EXPECT_EQ(columnsOf("中文"), 4U);
    EXPECT_EQ(columnsOf("e\u0301"), 1U) << "a mark stands on its letter";
    EXPECT_EQ(columnsOf("😀"), 2U);
}

TEST(TextWidth, MakesTextHarmlessForATerminal) {
    EXPECT_EQ(printable("a\x1B[31mb"), "a\uFFFD[31mb");
    EXPECT_EQ(printable("a\nb\tc"), "a b c");
    EXPECT_EQ(printable("a\r\nb\rc\vd\fe"), "a b c d e");
    EXPECT_EQ(printable("a\u0085b\u2028c\u2029d"), "a b c d");
    EXPECT_EQ(printable("a\xFF"), "a\uFFFD");
    EXPECT_EQ(printable("a\u009Bb"), "a\uFFFDb") << "a control sequence in one character";
    EXPECT_EQ(printable("a\u202Eb"), "a\uFFFDb") << "writing order is not for a name to change";
    EXPECT_EQ(printable("größer 中文"), "größer 中文");
}

TEST(TextWidth, EscapesWhatATerminalWouldObeyAndLosesNothing) {
    EXPECT_EQ(escaped("a\x1B[31mb"), "a\\u001b[31mb");
    EXPECT_EQ(escaped("a\n\tb\r", "\n\t"), "a\n\tb\\r");
    EXPECT_EQ(escaped("a\n\tb"), "a\\n\\tb");
    EXPECT_EQ(escaped(std::string_view("\0\x7F", 2)), "\\u0000\\u007f");
    EXPECT_EQ(escaped("\u009B\u202E"), "\\u009b\\u202e");
    EXPECT_EQ(escaped("a\xFF\xC3"), "a\\xff\\xc3");
    EXPECT_EQ(escaped("größer 中文 \"\\\" 😀"), "größer 中文 \"\\\" 😀");
}

TEST(TextWidth, TruncatesBetweenCharacters) {
    EXPECT_EQ(truncated("abc", 3), "abc");
    EXPECT_EQ(truncated("abcd", 3), "ab…");
    EXPECT_EQ(truncated("中文字", 5), "中文…");
    EXPECT_EQ(truncated("中文字", 4), "中…") << "half of a wide character is not shown";
    EXPECT_EQ(truncated("abc", 1), "…");
    EXPECT_EQ(truncated("abc", 0), "");
}

TEST(TextWidth, PadsToColumns) {
    EXPECT_EQ(padded("中", 4), "中  ");
    EXPECT_EQ(padded("abcd", 3), "abcd");
}

TEST(TextWidth, WrapsAtBlanks) {
    EXPECT_EQ(wrapped("one two three", 7), (Lines{"one two", "three"}));
    EXPECT_EQ(wrapped("one two", 7), Lines{"one two"});
    EXPECT_EQ(wrapped("a\nb", 10), (Lines{"a", "b"}));
    EXPECT_EQ(wrapped("", 10), Lines{""});
}

TEST(TextWidth, TakesLinesThatEndInReturnAndLineFeed) {
    EXPECT_EQ(wrapped("a\r\n\r\nb\rc\r\n", 10), (Lines{"a", "", "b c", ""}));
}

// A page of the web may be one line of a million characters: the time must not grow with the square.
TEST(TextWidth, WrapsALineAsLongAsAPage) {
    std::string text;
    for (int word = 0; word < 250'000; ++word)
        text += word == 0 ? "abc" : " abc";
    const Lines lines = wrapped(text, 80);
    ASSERT_EQ(lines.size(), 12'500U);
    EXPECT_EQ(lines.front(), lines.back());
    EXPECT_EQ(wrapped(std::string(1'000'000, 'x'), 80).size(), 12'500U);
}

TEST(TextWidth, BreaksWordsThatAreLongerThanALine) {
    EXPECT_EQ(wrapped("abcdefgh", 3), (Lines{"abc", "def", "gh"}));
    EXPECT_EQ(wrapped("中文", 1), (Lines{"中", "文"}));
}
