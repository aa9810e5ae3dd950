#include "platform/base/Utf8.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(Utf8, ReadsEveryCharacterItWrote) {
    for (char32_t code = 0; code <= 0x10FFFF; ++code) {
        if (code == 0xD800)
            code = 0xE000;
        std::string text;
        appendUtf8(code, text);
        const DecodedCharacter decoded = decodeUtf8(text, 0);
        ASSERT_EQ(decoded.character, code);
        ASSERT_EQ(decoded.length, text.size());
    }
}

TEST(Utf8, WritesNothingForAnInvalidCodePoint) {
    for (const char32_t code : {0xD800u, 0xDFFFu, 0x110000u, 0xFFFFFFFFu}) {
        std::string text;
        appendUtf8(code, text);
        EXPECT_EQ(text, "");
    }
}

TEST(Utf8, RefusesSurrogatesOverlongFormsAndCutSequences) {
    for (const char* text : {"\xed\xa0\x80", "\xc0\x80", "\xe0\x80\xaf", "\xf0\x80\x80\xaf",
                             "\xf4\x90\x80\x80", "\xc3", "\xe2\x82", "\x80", "\xff", "\xc3("})
        EXPECT_FALSE(isValidUtf8(text)) << text;
    EXPECT_TRUE(isValidUtf8("aß€😀"));
    EXPECT_TRUE(isValidUtf8(""));
}

} // namespace
} // namespace platform
