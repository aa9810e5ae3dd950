#include "cli/io/TypedJson.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>

namespace wardlock::cli {
namespace {

using platform::Array;
using platform::Dictionary;
using platform::Value;

std::string line(const Value& value) {
    return jsonLine(typedJson(value));
}

TEST(TypedJson, WritesBooleans) {
    EXPECT_EQ(line(Value(true)), R"({"bool":true})");
    EXPECT_EQ(line(Value(false)), R"({"bool":false})");
}

TEST(TypedJson, WritesIntegersOfBothSignsInFull) {
    EXPECT_EQ(line(Value(-12)), R"({"int":"-12"})");
    EXPECT_EQ(line(Value(std::numeric_limits<std::int64_t>::min())), R"({"int":"-9223372036854775808"})");
    EXPECT_EQ(line(Value(std::numeric_limits<std::uint64_t>::max())), R"({"int":"18446744073709551615"})");
}

TEST(TypedJson, WritesRealsThatReadBackAsTheSameDouble) {
    EXPECT_EQ(line(Value(1.5)), R"({"real":"1.5"})");
    for (const double number : {0.1, -0.0, 1.0 / 3, 5e-324, 1.7976931348623157e308, 123456789012345678.0}) {
        const std::string text = typedJson(Value(number))["real"];
        double back = 7;
        std::from_chars(text.data(), text.data() + text.size(), back);
        EXPECT_EQ(back, number) << text;
        EXPECT_EQ(std::signbit(back), std::signbit(number)) << text;
    }
}

TEST(TypedJson, WritesRealsThatAreNotNumbers) {
    EXPECT_EQ(line(Value(std::numeric_limits<double>::infinity())), R"({"real":"inf"})");
    EXPECT_EQ(line(Value(-std::numeric_limits<double>::infinity())), R"({"real":"-inf"})");
    EXPECT_EQ(line(Value(std::nan(""))), R"({"real":"nan"})");
    EXPECT_EQ(line(Value(-std::nan(""))), R"({"real":"nan"})");
}

TEST(TypedJson, WritesStrings) {
    EXPECT_EQ(line(Value("a \"b\"\n€")), R"({"string":"a \"b\"\n€"})");
    EXPECT_EQ(line(Value("")), R"({"string":""})");
}

TEST(TypedJson, WritesDataInBase64) {
    EXPECT_EQ(line(Value::data("")), R"({"data":""})");
    EXPECT_EQ(line(Value::data("f")), R"({"data":"Zg=="})");
    EXPECT_EQ(line(Value::data("fo")), R"({"data":"Zm8="})");
    EXPECT_EQ(line(Value::data("foo")), R"({"data":"Zm9v"})");
    EXPECT_EQ(line(Value::data(std::string_view("\xff\xfe\0\x80", 4))), R"({"data":"//4AgA=="})");
}

TEST(TypedJson, WritesDatesRoundedDownToTheSecond) {
    EXPECT_EQ(line(Value::date(0)), R"({"date":"2001-01-01T00:00:00Z"})");
    EXPECT_EQ(line(Value::date(86399.9)), R"({"date":"2001-01-01T23:59:59Z"})");
    EXPECT_EQ(line(Value::date(-0.5)), R"({"date":"2000-12-31T23:59:59Z"})");
    EXPECT_EQ(line(Value::date(-978307200)), R"({"date":"1970-01-01T00:00:00Z"})");
    EXPECT_EQ(line(Value::date(252423993599)), R"({"date":"9999-12-31T23:59:59Z"})");
    EXPECT_EQ(line(Value::date(-63113904000)), R"({"date":"0001-01-01T00:00:00Z"})");
}

TEST(TypedJson, BoundsDatesBeyondEveryCalendar) {
    EXPECT_EQ(line(Value::date(std::nan(""))), line(Value::date(0)));
    EXPECT_EQ(line(Value::date(1e300)), line(Value::date(std::numeric_limits<double>::infinity())));
    EXPECT_NE(line(Value::date(1e300)), line(Value::date(-1e300)));
}

TEST(TypedJson, WritesArrays) {
    EXPECT_EQ(line(Value(Array{})), R"({"array":[]})");
    EXPECT_EQ(line(Value(Array{Value(1), Value(Array{Value(true)})})),
              R"({"array":[{"int":"1"},{"array":[{"bool":true}]}]})");
}

TEST(TypedJson, WritesDictionariesInTheirOrder) {
    EXPECT_EQ(line(Value(Dictionary{})), R"({"dict":[]})");
    EXPECT_EQ(line(Value(Dictionary{{"z", Value(1)}, {"a", Value("x")}})),
              R"({"dict":[["z",{"int":"1"}],["a",{"string":"x"}]]})");
}

TEST(TypedJson, WritesAbsenceAsNull) {
    EXPECT_EQ(jsonLine(typedJson(static_cast<const Value*>(nullptr))), "null");
}

} // namespace
} // namespace wardlock::cli
