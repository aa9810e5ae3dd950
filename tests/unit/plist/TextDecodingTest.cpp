#include "platform/plist/PropertyList.h"
#include "tests/unit/plist/PropertyListReading.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace platform {
namespace {

using wardlock::test::reading;

constexpr std::u32string_view document = U"<?xml version=\"1.0\"?><string>a\u00e4\u20ac\U0001F600</string>";
constexpr std::u32string_view inUtf16 =
    U"<?xml version=\"1.0\" encoding=\"UTF-16\"?><string>a\u00e4\u20ac\U0001F600</string>";
constexpr std::u32string_view inUtf32 =
    U"<?xml version=\"1.0\" encoding=\"UTF-32\"?><string>a\u00e4\u20ac\U0001F600</string>";
constexpr const char* content = "\"a\u00e4\u20ac\U0001F600\"";

std::string bytes(char32_t unit, int size, bool big) {
    std::string result;
    for (int i = 0; i < size; ++i)
        result += static_cast<char>(static_cast<unsigned char>(unit >> 8 * (big ? size - 1 - i : i)));
    return result;
}

std::string utf32(std::u32string_view text, bool big) {
    std::string result;
    for (const char32_t c : text)
        result += bytes(c, 4, big);
    return result;
}

std::string utf16(std::u32string_view text, bool big) {
    std::string result;
    for (const char32_t c : text) {
        if (c < 0x10000) {
            result += bytes(c, 2, big);
        } else {
            result += bytes(0xD800 + ((c - 0x10000) >> 10), 2, big);
            result += bytes(0xDC00 + ((c - 0x10000) & 0x3FF), 2, big);
        }
    }
    return result;
}

std::string declared(std::string_view encoding, std::string_view text) {
    return "<?xml version=\"1.0\" encoding=\"" + std::string(encoding) + "\"?><string>" + std::string(text) +
           "</string>";
}

TEST(TextDecoding, ReadsUtf8WithAndWithoutAMark) {
    EXPECT_EQ(reading("<string>a\u00e4\u20ac\U0001F600</string>"), content);
    EXPECT_EQ(reading("\xEF\xBB\xBF<string>a\u00e4\u20ac\U0001F600</string>"), content);
    EXPECT_EQ(reading(declared("utf-8", "a\u00e4\u20ac\U0001F600")), content);
}

TEST(TextDecoding, ReadsUtf16ByItsMark) {
    EXPECT_EQ(reading("\xFF\xFE" + utf16(document, false)), content);
    EXPECT_EQ(reading("\xFE\xFF" + utf16(document, true)), content);
}

TEST(TextDecoding, ReadsUtf16ByItsDeclaration) {
    EXPECT_EQ(reading(utf16(inUtf16, false)), content);
    EXPECT_EQ(reading(utf16(inUtf16, true)), content);
    EXPECT_EQ(reading(utf16(U"<?xml version='1.0' encoding='utf-16le'?><string>\u20ac</string>", false)),
              "\"\u20ac\"");
    EXPECT_EQ(reading(utf16(U"<?xml version='1.0' encoding='utf-16be'?><string>\u20ac</string>", true)),
              "\"\u20ac\"");
}

TEST(TextDecoding, ReadsUtf32ByItsMarkOrItsDeclaration) {
    EXPECT_EQ(reading(std::string("\xFF\xFE\0\0", 4) + utf32(document, false)), content);
    EXPECT_EQ(reading(std::string("\0\0\xFE\xFF", 4) + utf32(document, true)), content);
    EXPECT_EQ(reading(utf32(inUtf32, false)), content);
    EXPECT_EQ(reading(utf32(inUtf32, true)), content);
}

TEST(TextDecoding, RefusesWideUnitsWithoutAMarkOrADeclaration) {
    for (const bool big : {false, true}) {
        EXPECT_EQ(reading(utf16(document, big)), "no document") << big;
        EXPECT_EQ(reading(utf32(document, big)), "no document") << big;
        EXPECT_EQ(reading(utf16(U"<true/>", big)), "no document") << big;
        EXPECT_EQ(reading(utf32(U"<true/>", big)), "no document") << big;
    }
}

TEST(TextDecoding, RefusesWideUnitsThatAreNotWhatTheyDeclare) {
    EXPECT_EQ(reading(utf16(inUtf32, true)), "no document");
    EXPECT_EQ(reading(utf32(inUtf16, true)), "no document");
    EXPECT_EQ(reading(utf16(U"<?xml version='1.0' encoding='utf-16le'?><true/>", true)), "no document");
    EXPECT_EQ(reading(utf16(U"<?xml version='1.0' encoding='utf-8'?><true/>", true)), "no document");
}

TEST(TextDecoding, RefusesAnEncodingWithoutAName) {
    EXPECT_EQ(reading(declared("", "a")), "no document");
    EXPECT_EQ(reading("<?xml version='1.0' encoding=''?><string>a</string>"), "no document");
    EXPECT_EQ(reading("\xEF\xBB\xBF" + declared("", "a")), "no document");
}

TEST(TextDecoding, ReadsWindows1252ByItsDeclaration) {
    EXPECT_EQ(reading(declared("windows-1252", "\x80\x91\x9F\xA0\xE4\xFF")),
              "\"\u20ac\u2018\u0178\u00a0\u00e4\u00ff\"");
    EXPECT_EQ(reading(declared("Windows-1252", "\x81\x8D\x8F\x90\x9D")), "\"\u0081\u008d\u008f\u0090\u009d\"")
        << "where it has no characters of its own";
}

TEST(TextDecoding, ReadsLatin1ByItsDeclaration) {
    for (const char* name : {"ISO-8859-1", "iso-8859-1", "latin1"})
        EXPECT_EQ(reading(declared(name, "\xE4\xFF")), "\"\u00e4\u00ff\"") << name;
    EXPECT_EQ(reading("<?xml version='1.0' encoding = 'ISO-8859-1' ?><string>\xE4</string>"), "\"\u00e4\"");
}

TEST(TextDecoding, ReadsAsciiByItsDeclarationAndRefusesOtherBytesThen) {
    EXPECT_EQ(reading(declared("US-ASCII", "a&#228;")), "\"a\u00e4\"");
    EXPECT_EQ(reading(declared("US-ASCII", "\u00e4")), "no document");
}

TEST(TextDecoding, BelievesTheMarkRatherThanTheDeclaration) {
    EXPECT_EQ(reading("\xEF\xBB\xBF" + declared("ISO-8859-1", "\u00e4")), "\"\u00e4\"");
}

TEST(TextDecoding, RefusesEncodingsItDoesNotKnow) {
    EXPECT_EQ(reading(declared("Shift_JIS", "a")), "no document");
    EXPECT_EQ(reading(declared("UTF-16", "a")), "no document");
}

TEST(TextDecoding, RefusesBytesThatAreNotUtf8Anywhere) {
    for (const char* wrong :
         {"\x80", "\xC3", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xFF"}) {
        EXPECT_EQ(reading("<string>" + std::string(wrong) + "</string>"), "no document");
        EXPECT_EQ(reading("<dict><key>" + std::string(wrong) + "</key><true/></dict>"), "no document");
        EXPECT_EQ(reading("<!-- " + std::string(wrong) + " --><true/>"), "no document");
        EXPECT_EQ(reading("<true/>\n<!-- " + std::string(40, ' ') + wrong + " -->"), "no document");
    }
}

TEST(TextDecoding, RefusesUtf16WithHalfAUnitOrHalfAPair) {
    EXPECT_EQ(reading("\xFF\xFE" + utf16(document, false) + "x"), "no document");
    const std::string open = "\xFE\xFF" + utf16(U"<string>", true);
    const std::string close = utf16(U"</string>", true);
    EXPECT_EQ(reading(open + bytes(0xD800, 2, true) + close), "no document");
    EXPECT_EQ(reading(open + bytes(0xDC00, 2, true) + close), "no document");
    EXPECT_EQ(reading("\xFE\xFF" + utf16(U"<true/>", true) + bytes(0xD800, 2, true)), "no document");
    EXPECT_EQ(reading(open + bytes(0xD83D, 2, true) + bytes(0xDE00, 2, true) + close), "\"\U0001F600\"");
}

TEST(TextDecoding, RefusesUtf32BeyondUnicode) {
    const std::string open = std::string("\0\0\xFE\xFF", 4) + utf32(U"<string>", true);
    const std::string close = utf32(U"</string>", true);
    EXPECT_EQ(reading(open + bytes(0x110000, 4, true) + close), "no document");
    EXPECT_EQ(reading(open + close + "xyz"), "no document");
    EXPECT_EQ(reading(open + bytes(0x10FFFF, 4, true) + close), "\"\U0010FFFF\"");
}

} // namespace
} // namespace platform
