#include "platform/values/Value.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace platform {
namespace {

bool truth(const Value& value) {
    return boolValue(&value);
}

float number(const Value& value) {
    return floatValue(&value);
}

TEST(BoolValue, IsFalseForNil) {
    EXPECT_FALSE(boolValue(nullptr));
}

TEST(BoolValue, IsTrueForANumberOtherThanZero) {
    for (const Value& value :
         {Value(true), Value(1), Value(-1), Value(0.25), Value(1ull << 63), Value(std::nan(""))})
        EXPECT_TRUE(truth(value));
    for (const Value& value : {Value(false), Value(0), Value(0.0), Value(-0.0)})
        EXPECT_FALSE(truth(value));
}

TEST(BoolValue, ReadsTheBeginningOfAString) {
    for (const char* text : {"YES", "yes", "Y", "true", "T", "tomorrow", "1", "9 lives", "  YES", "\tyes",
                             "+1", "-3", "007", "-00y", "0001"})
        EXPECT_TRUE(truth(text)) << text;
    for (const char* text :
         {"", "NO", "no", "false", "0", "000", "-", "+0", "maybe", "--1", "0x1", "enabled", " ", ".5"})
        EXPECT_FALSE(truth(text)) << text;
}

TEST(BoolValue, IsFalseForOtherKinds) {
    for (const Value& value :
         {Value::data("YES"), Value::date(1), Value(Array{true}), Value(Dictionary{{"YES", true}})})
        EXPECT_FALSE(truth(value));
}

TEST(FloatValue, IsZeroForNil) {
    EXPECT_EQ(floatValue(nullptr), 0.0f);
}

TEST(FloatValue, IsTheNumberItselfForANumber) {
    EXPECT_EQ(number(true), 1.0f);
    EXPECT_EQ(number(-3), -3.0f);
    EXPECT_EQ(number(0.1), 0.1f);
    EXPECT_EQ(number(std::numeric_limits<std::uint64_t>::max()), 18446744073709551616.0f);
}

TEST(FloatValue, IsInfiniteBeyondItsRange) {
    EXPECT_EQ(number(1e300), std::numeric_limits<float>::infinity());
    EXPECT_EQ(number(-1e300), -std::numeric_limits<float>::infinity());
    EXPECT_EQ(number("1e999"), std::numeric_limits<float>::infinity());
    EXPECT_EQ(number("-1e999"), -std::numeric_limits<float>::infinity());
    EXPECT_EQ(number(std::string(400, '9')), std::numeric_limits<float>::infinity());
}

TEST(FloatValue, IsZeroBelowItsRange) {
    EXPECT_EQ(number(1e-300), 0.0f);
    EXPECT_EQ(number("1e-999"), 0.0f);
    EXPECT_EQ(number("0." + std::string(400, '0') + "1"), 0.0f);
}

TEST(FloatValue, ReadsTheNumberAtTheBeginningOfAString) {
    EXPECT_EQ(number("1.5"), 1.5f);
    EXPECT_EQ(number("  -2.25 degrees"), -2.25f);
    EXPECT_EQ(number("+3"), 3.0f);
    EXPECT_EQ(number(".5"), 0.5f);
    EXPECT_EQ(number("5."), 5.0f);
    EXPECT_EQ(number("1e2x"), 100.0f);
    EXPECT_EQ(number("12abc"), 12.0f);
}

TEST(FloatValue, IsZeroForAStringThatDoesNotBeginWithANumber) {
    for (const char* text : {"", "YES", "nan", "inf", "infinity", "-", ".", "-.", "--1", "+-1", "e5", "0x10"})
        EXPECT_EQ(number(text), 0.0f) << text;
}

TEST(FloatValue, IsZeroForOtherKinds) {
    for (const Value& value :
         {Value::data("1"), Value::date(1), Value(Array{1}), Value(Dictionary{{"1", 1}})})
        EXPECT_EQ(number(value), 0.0f);
}

TEST(ContainerReading, ReturnsNullForNilAndForAnotherKind) {
    const Value array = Array{1};
    const Value dictionary = Dictionary{{"a", 1}};
    EXPECT_EQ(arrayValue(nullptr), nullptr);
    EXPECT_EQ(arrayValue(&dictionary), nullptr);
    EXPECT_EQ(dictionaryValue(nullptr), nullptr);
    EXPECT_EQ(dictionaryValue(&array), nullptr);
    ASSERT_NE(arrayValue(&array), nullptr);
    EXPECT_EQ(arrayValue(&array)->size(), 1u);
    ASSERT_NE(dictionaryValue(&dictionary), nullptr);
    EXPECT_EQ(dictionaryValue(&dictionary)->size(), 1u);
}

TEST(StringValue, IsAbsentForNilAndForAnotherKind) {
    const Value empty = "";
    const Value data = Value::data("x");
    EXPECT_EQ(stringValue(nullptr), std::nullopt);
    EXPECT_EQ(stringValue(&data), std::nullopt);
    EXPECT_EQ(stringValue(&empty), "");
}

} // namespace
} // namespace platform
