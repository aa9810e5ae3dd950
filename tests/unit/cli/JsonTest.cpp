#include "cli/io/Json.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

namespace wardlock::cli {
namespace {

std::string nested(int depth) {
    return std::string(static_cast<std::size_t>(depth), '[') +
           std::string(static_cast<std::size_t>(depth), ']');
}

TEST(Json, IsWrittenOnOneLine) {
    EXPECT_EQ(jsonLine(Json{{"b", {1, 2}}, {"a", "x"}}), R"({"b":[1,2],"a":"x"})");
}

TEST(Json, EscapesCharactersThatAStringMayNotContain) {
    EXPECT_EQ(jsonLine(Json(std::string("\"\\\n\t\0\x1f", 6))), R"("\"\\\n\t\u0000\u001f")");
}

TEST(Json, LeavesOtherCharactersAsTheyAre) {
    EXPECT_EQ(jsonLine(Json("é€😀/")), "\"é€😀/\"");
}

TEST(Json, ReplacesBytesThatAreNotUtf8) {
    EXPECT_EQ(jsonLine(Json("a\xff"
                            "b")),
              "\"a\xEF\xBF\xBD"
              "b\"");
}

TEST(Json, ReadsWhatItWrites) {
    const Json value = {{"key", "k\u0001"}, {"list", {true, nullptr, -3, 1.5}}};
    EXPECT_EQ(parseJson(jsonLine(value)), value);
}

TEST(Json, AcceptsExactlyOneValue) {
    EXPECT_TRUE(parseJson(" {} "));
    EXPECT_FALSE(parseJson(""));
    EXPECT_FALSE(parseJson("{} {}"));
    EXPECT_FALSE(parseJson("{\"a\":1"));
}

TEST(Json, RefusesFormsOfLenientReaders) {
    EXPECT_FALSE(parseJson("[1,]"));
    EXPECT_FALSE(parseJson("// x\n1"));
    EXPECT_FALSE(parseJson("{a:1}"));
    EXPECT_FALSE(parseJson("'a'"));
    EXPECT_FALSE(parseJson("NaN"));
    EXPECT_FALSE(parseJson("01"));
}

TEST(Json, RefusesBytesThatAreNotUtf8) {
    EXPECT_FALSE(parseJson("\"a\xff\""));
    EXPECT_FALSE(parseJson("\"\\ud800\""));
}

TEST(Json, RefusesAnObjectThatNamesAKeyTwice) {
    EXPECT_FALSE(parseJson(R"({"a":1,"a":2})"));
    EXPECT_FALSE(parseJson(R"([{"b":{"a":1,"a":1}}])"));
    EXPECT_TRUE(parseJson(R"([{"a":1},{"a":{"a":2}}])"));
}

TEST(Json, BoundsNesting) {
    EXPECT_TRUE(parseJson(nested(deepestJson)));
    EXPECT_FALSE(parseJson(nested(deepestJson + 1)));
    EXPECT_FALSE(parseJson(nested(100000)));
}

} // namespace
} // namespace wardlock::cli
