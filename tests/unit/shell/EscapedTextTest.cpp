#include "shell/screen/EscapedText.h"

#include <gtest/gtest.h>

using wardlock::shell::escaped;

TEST(EscapedText, ShowsEachControlByteInOneForm) {
    EXPECT_EQ(escaped("a\x1B[31mb"), R"(a\x1b[31mb)");
    EXPECT_EQ(escaped("a\n\tb\r"), R"(a\x0a\x09b\x0d)");
    EXPECT_EQ(escaped(std::string_view("\0\x7F", 2)), R"(\x00\x7f)");
    EXPECT_EQ(escaped("\u009B\u202E\u2028"), R"(\xc2\x9b\xe2\x80\xae\xe2\x80\xa8)");
}

TEST(EscapedText, ShowsBytesThatAreNotUtf8InTheSameForm) {
    EXPECT_EQ(escaped("a\xFF\xC3"), R"(a\xff\xc3)");
}

TEST(EscapedText, LeavesAllOtherTextAsItIs) {
    EXPECT_EQ(escaped("gr\u00f6\u00dfer \u4e2d\u6587 \"\\\" \U0001F600"),
              "gr\u00f6\u00dfer \u4e2d\u6587 \"\\\" \U0001F600");
}

TEST(EscapedText, KeepsTheRequestedCharacters) {
    EXPECT_EQ(escaped("a\n\tb\r", "\n\t"), "a\n\tb\\x0d");
}
