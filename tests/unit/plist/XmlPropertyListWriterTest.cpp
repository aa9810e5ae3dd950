#include "platform/plist/PropertyList.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/ValueText.h"
#include "tests/unit/plist/PropertyListReading.h"

#include <gtest/gtest.h>

#include <bit>
#include <fstream>
#include <limits>
#include <random>
#include <sstream>

namespace platform {
namespace {

using wardlock::test::reading;
using wardlock::test::text;

std::string golden(const std::string& name) {
    std::ifstream file(wardlock::test::sourceFolder() + "/tests/unit/plist/golden/" + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    std::stringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

/// The text between <plist> and </plist>.
std::string written(const Value& value) {
    const std::string document = dataWithPropertyList(value);
    const std::string open = "<plist version=\"1.0\">\n";
    const std::size_t start = document.find(open) + open.size();
    return document.substr(start, document.rfind("</plist>\n") - start);
}

std::string allCharactersBelow(int end) {
    std::string characters;
    for (int c = 0; c < end; ++c)
        characters += static_cast<char>(c);
    return characters;
}

TEST(XmlWriter, WritesThePlatformsForm) {
    const Value document = Dictionary{
        {"kEnabled", true},
        {"kPasscode", ""},
        {"kAccounts", Array{Dictionary{{"kAccountEnabled", false},
                                       {"kAccountName", "Ada & <family>"},
                                       {"kAppsRestricted", Array{"com.example.one", "com.example.two"}}},
                            Dictionary{{"kAppsRestricted", Array()}, {"kOther", Dictionary()}}}},
        {"numbers", Array{0, -7, std::numeric_limits<std::uint64_t>::max(), 1.5, 0.1}},
        {"when", Value::date(86399)},
        {"bytes", Value::data(allCharactersBelow(128))},
        {"deeper", Array{Value(Array{Value::data(allCharactersBelow(100))})}},
        {"none", Value::data("")},
        {"text", "\"quoted\"\ttab 'and' \u00fcnicode"}};
    EXPECT_EQ(dataWithPropertyList(document), golden("EveryKind.plist"));
}

TEST(XmlWriter, WritesADictionaryAsAValueOfThatDictionary) {
    const Dictionary dictionary{{"a", 1}};
    EXPECT_EQ(dataWithPropertyList(dictionary), dataWithPropertyList(Value(dictionary)));
}

TEST(XmlWriter, WritesKeysInTheOrderOfInsertion) {
    EXPECT_EQ(written(Dictionary{{"z", true}, {"a", true}}),
              "<dict>\n\t<key>z</key>\n\t<true/>\n\t<key>a</key>\n\t<true/>\n</dict>\n");
}

TEST(XmlWriter, WritesEmptyContainersAsOneTag) {
    EXPECT_EQ(written(Array()), "<array/>\n");
    EXPECT_EQ(written(Dictionary()), "<dict/>\n");
}

TEST(XmlWriter, WritesEmptyStringsAndKeys) {
    EXPECT_EQ(written(""), "<string></string>\n");
    EXPECT_EQ(written(Dictionary{{"", ""}}), "<dict>\n\t<key></key>\n\t<string></string>\n</dict>\n");
}

TEST(XmlWriter, WritesMarkupAndReturnsAsReferences) {
    EXPECT_EQ(written("<&>\r\n\t]]>"), "<string>&lt;&amp;&gt;&#13;\n\t]]&gt;</string>\n");
}

TEST(XmlWriter, WritesCharactersThatXmlCannotContainAsReplacementsWithTheirCode) {
    EXPECT_EQ(written(std::string("a\x01\x1F\0b", 5)),
              "<string>a\uFFFD<!--U+0001-->\uFFFD<!--U+001F-->\uFFFD<!--U+0000-->b</string>\n");
    EXPECT_EQ(written(Dictionary{{"\uFFFE", "\uFFFF"}}),
              "<dict>\n\t<key>\uFFFD<!--U+FFFE--></key>\n\t<string>\uFFFD<!--U+FFFF--></string>\n</dict>\n");
}

TEST(XmlWriter, WritesCharactersThatXmlCanContainUnchanged) {
    EXPECT_EQ(written("\x7F\u0080\u0085\u2028\uFDD0\uFFFD\U0001FFFE\U0010FFFF"),
              "<string>\x7F\u0080\u0085\u2028\uFDD0\uFFFD\U0001FFFE\U0010FFFF</string>\n");
}

TEST(XmlWriter, EscapesKeysLikeStrings) {
    EXPECT_EQ(written(Dictionary{{"a<b", true}, {"plain", false}}),
              "<dict>\n\t<key>a&lt;b</key>\n\t<true/>\n\t<key>plain</key>\n\t<false/>\n</dict>\n");
}

TEST(XmlWriter, EscapesACharacterAtAnyPosition) {
    for (std::size_t length = 1; length < 40; ++length) {
        for (std::size_t at = 0; at < length; ++at) {
            for (const char special : {'<', '>', '&', '\r', '\x1F', '\0', '\x80'}) {
                std::string string(length, '\x7F');
                string[at] = special;
                const std::string expected =
                    special == '\x80' ? string.substr(0, at) + "\uFFFD" + string.substr(at + 1) : string;
                ASSERT_EQ(reading(dataWithPropertyList(string)), text(expected))
                    << length << " " << at << " " << int(special);
            }
        }
    }
}

TEST(XmlWriter, WritesStringsThatReadBackUnchanged) {
    const std::string string = allCharactersBelow(128) +
                               "]]>\u00e4\u2028\uFFFE\uFFFF\uFFFD<!--U+0007-->\U0001F600 \r\n <![CDATA[&amp;";
    EXPECT_EQ(propertyListWithData(dataWithPropertyList(string)), Value(string));
    const Value keyed = Dictionary{{string, string}};
    EXPECT_EQ(propertyListWithData(dataWithPropertyList(keyed)), keyed);
}

TEST(XmlWriter, WritesTheReplacementCharacterForInvalidUtf8) {
    EXPECT_EQ(written("a\xFF"
                      "b\xC3"),
              "<string>a\uFFFDb\uFFFD</string>\n");
}

TEST(XmlWriter, WritesRealsThatReadBackToTheLastBit) {
    std::mt19937_64 bits(20010101);
    for (int i = 0; i < 20'000; ++i) {
        const double real = std::bit_cast<double>(bits());
        const auto back = propertyListWithData(dataWithPropertyList(Value(real)));
        ASSERT_TRUE(back);
        if (real == real)
            ASSERT_EQ(std::bit_cast<std::uint64_t>(back->real()), std::bit_cast<std::uint64_t>(real)) << real;
        else
            ASSERT_NE(back->real(), back->real());
    }
}

TEST(XmlWriter, WritesRealsAsShortAsTheyCanBe) {
    EXPECT_EQ(
        written(Array{0.1, 1.0, -0.0, 1e22, std::numeric_limits<double>::infinity(),
                      -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}),
        "<array>\n\t<real>0.1</real>\n\t<real>1</real>\n\t<real>-0</real>\n\t<real>1e+22</real>\n"
        "\t<real>+infinity</real>\n\t<real>-infinity</real>\n\t<real>nan</real>\n</array>\n");
}

TEST(XmlWriter, WritesIntegersThatReadBackOverTheWholeRange) {
    const Value integers = Array{std::numeric_limits<std::int64_t>::min(),
                                 -1,
                                 0,
                                 std::numeric_limits<std::int64_t>::max(),
                                 std::uint64_t(1) << 63,
                                 std::numeric_limits<std::uint64_t>::max()};
    EXPECT_EQ(propertyListWithData(dataWithPropertyList(integers)), integers);
}

TEST(XmlWriter, WritesDatesRoundedDownToTheSecond) {
    EXPECT_EQ(written(Value::date(0.999)), "<date>2001-01-01T00:00:00Z</date>\n");
    EXPECT_EQ(written(Value::date(-0.001)), "<date>2000-12-31T23:59:59Z</date>\n");
}

TEST(XmlWriter, WritesDatesThatReadBackOverTheWholeCalendar) {
    for (const double seconds :
         {-63113904000.0, -63145612801.0, 252423993600.0, 0.0, -1.0, 730943999.0, 1e11, -1e12, 9.7e11})
        EXPECT_EQ(propertyListWithData(dataWithPropertyList(Value::date(seconds))), Value::date(seconds))
            << seconds;
}

TEST(XmlWriter, WritesDatesBeyondTheCalendarAsItsEnds) {
    EXPECT_EQ(written(Value::date(1e300)), "<date>32767-12-31T23:59:59Z</date>\n");
    EXPECT_EQ(written(Value::date(-std::numeric_limits<double>::infinity())),
              "<date>-32767-01-01T00:00:00Z</date>\n");
    EXPECT_EQ(written(Value::date(std::numeric_limits<double>::quiet_NaN())),
              "<date>2001-01-01T00:00:00Z</date>\n");
}

TEST(XmlWriter, WritesDataThatReadsBackAtEveryLengthAndDepth) {
    for (int depth = 0; depth < 12; ++depth) {
        for (int length = 0; length < 130; ++length) {
            Value value = Value::data(allCharactersBelow(128).substr(0, static_cast<std::size_t>(length)));
            for (int i = 0; i < depth; ++i)
                value = Array{value};
            ASSERT_EQ(propertyListWithData(dataWithPropertyList(value)), value) << depth << " " << length;
        }
    }
}

TEST(XmlWriter, WritesValuesDeeperThanTheReaderTakes) {
    constexpr int depth = 2'000;
    Value value = true;
    for (int i = 0; i < depth; ++i)
        value = Array{value};
    const std::string document = dataWithPropertyList(value);
    EXPECT_NE(document.find("\n" + std::string(depth, '\t') + "<true/>\n"), std::string::npos);
}

} // namespace
} // namespace platform
