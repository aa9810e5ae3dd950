#include "platform/text/Format.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

using namespace platform;

TEST(Description, ReturnsAStringItself) {
    EXPECT_EQ(description(Value("it's \"here\"\n")), "it's \"here\"\n");
}

TEST(Description, WritesBooleansAsOneOrZero) {
    EXPECT_EQ(description(Value(true)), "1");
    EXPECT_EQ(description(Value(false)), "0");
}

TEST(Description, WritesNumbersAsTheirShortestText) {
    EXPECT_EQ(description(Value(-3)), "-3");
    EXPECT_EQ(description(Value(std::numeric_limits<std::uint64_t>::max())), "18446744073709551615");
    EXPECT_EQ(description(Value(0.1)), "0.1");
    EXPECT_EQ(description(Value(3.0)), "3");
}

TEST(Description, WritesDataAsHexadecimalInGroupsOfFour) {
    EXPECT_EQ(description(Value::data(std::string_view("\x01\xab\x00\xff\x10", 5))), "<01ab00ff 10>");
    EXPECT_EQ(description(Value::data("")), "<>");
}

TEST(Description, WritesDatesInUtc) {
    EXPECT_EQ(description(Value::date(0)), "2001-01-01 00:00:00 +0000");
    EXPECT_EQ(description(Value::date(-1)), "2000-12-31 23:59:59 +0000");
    EXPECT_EQ(description(Value::date(60.9)), "2001-01-01 00:01:00 +0000");
}

TEST(Description, WritesTheFirstAndTheLastDateOfTheCalendar) {
    EXPECT_EQ(description(Value::date(-1097172086400.0)), "-32767-01-01 00:00:00 +0000");
    EXPECT_EQ(description(Value::date(970912655999.0)), "32767-12-31 23:59:59 +0000");
}

TEST(Description, WritesADateBeyondTheCalendarAsItsNumber) {
    EXPECT_EQ(description(Value::date(970912656000.0)), "970912656000");
    EXPECT_EQ(description(Value::date(-1097172086401.0)), "-1097172086401");
    EXPECT_EQ(description(Value::date(1e300)), "1e+300");
    EXPECT_EQ(description(Value::date(std::numeric_limits<double>::infinity())), "inf");
}

TEST(Description, WritesEmptyCollectionsWithoutElements) {
    EXPECT_EQ(description(Value(Array())), "(\n)");
    EXPECT_EQ(description(Value(Dictionary())), "{\n}");
}

TEST(Description, PutsOneElementOnALine) {
    EXPECT_EQ(description(Value(Array{"a", "b"})), "(\n    a,\n    b\n)");
    EXPECT_EQ(description(Value(Dictionary{{"b", 1}, {"a", "x"}})), "{\n    b = 1;\n    a = x;\n}");
}

TEST(Description, QuotesStringsInsideCollectionsWhereTheyAreNotPlain) {
    EXPECT_EQ(description(Value(Array{"com.example", "", "two words", "plain1"})),
              "(\n    \"com.example\",\n    \"\",\n    \"two words\",\n    plain1\n)");
    EXPECT_EQ(description(Value(Dictionary{{"a key", "x"}})), "{\n    \"a key\" = x;\n}");
}

TEST(Description, EscapesInsideQuotes) {
    EXPECT_EQ(description(Value(Array{"\"\\\n\t\x01"})), "(\n    \"\\\"\\\\\\n\\t\\U0001\"\n)");
}

TEST(Description, KeepsLettersBeyondAsciiReadable) {
    EXPECT_EQ(description(Value(Array{"Zo\u00eb"})), "(\n    \"Zo\u00eb\"\n)");
}

TEST(Description, IndentsNestedCollections) {
    EXPECT_EQ(description(Value(Dictionary{{"list", Array{"a", Array{"b"}}}})), "{\n"
                                                                                "    list =     (\n"
                                                                                "        a,\n"
                                                                                "                (\n"
                                                                                "            b\n"
                                                                                "        )\n"
                                                                                "    );\n"
                                                                                "}");
}

TEST(Description, CutsDeepCollectionsShort) {
    Value value("bottom");
    for (int i = 0; i < 100000; ++i)
        value = Value(Array{value});
    const std::string text = description(value);
    EXPECT_NE(text.find("..."), std::string::npos);
    EXPECT_EQ(text.find("bottom"), std::string::npos);
}

TEST(Description, CutsCollectionsShortWhoseElementsExceedMemory) {
    Value value("bottom");
    for (int i = 0; i < 40; ++i)
        value = Value(Array{value, value, value, value});
    const std::string text = description(value);
    EXPECT_NE(text.find("..."), std::string::npos);
    EXPECT_LT(text.size(), std::size_t{2} << 20);
}
