#include "cli/io/TextWidth.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

using namespace wardlock::cli;
using Lines = std::vector<std::string>;

TEST(TextWidth, CountsColumnsAndNotBytes) {
    EXPECT_EQ(columnsOf("abc"), 3U);
    EXPECT_EQ(columnsOf("Jürgen"), 6U);
    EXPECT_EQ(columnsOf("中文"), 4U);
    EXPECT_EQ(columnsOf("e\u0301"), 1U) << "a mark combines with its letter";
    EXPECT_EQ(columnsOf("😀"), 2U);
}

TEST(TextWidth, CountsMarksOfEveryScriptWithTheirLetters) {
    EXPECT_EQ(columnsOf("க்"), 1U) << "Tamil";
    EXPECT_EQ(columnsOf("ກິ"), 1U) << "Lao";
    EXPECT_EQ(columnsOf("\u2693\u26BD"), 4U) << "pictures among the symbols";
}

TEST(TextWidth, CountsColumnsInWhateverLocaleTheProcessIs) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    ASSERT_TRUE(std::setlocale(LC_ALL, "C"));
    EXPECT_EQ(columnsOf("中文"), 4U);
    std::setlocale(LC_ALL, before.c_str());
}

TEST(TextWidth, EscapesTextForATerminal) {
    EXPECT_EQ(printable("a\x1B[31mb"), R"(a\x1b[31mb)");
    EXPECT_EQ(printable("a\nb\tc"), "a b c");
    EXPECT_EQ(printable("a\r\nb\rc\vd\fe"), "a b c d e");
    EXPECT_EQ(printable("a\u0085b\u2028c\u2029d"), "a b c d");
    EXPECT_EQ(printable("a\xFF\xA8"), R"(a\xff\xa8)") << "half of a line separator is not one";
    EXPECT_EQ(printable("a\u009Bb"), R"(a\xc2\x9bb)") << "a control sequence in one character";
    EXPECT_EQ(printable("a\u202Eb"), R"(a\xe2\x80\xaeb)") << "writing order is not for a name to change";
    EXPECT_EQ(printable("größer 中文"), "größer 中文");
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

TEST(TextWidth, AcceptsLinesThatEndInReturnAndLineFeed) {
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
