#include "cli/io/Suggestion.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace wardlock::cli {
namespace {

constexpr std::array<std::string_view, 5> known{"status", "settings", "get", "set", "account"};

TEST(Suggestion, CorrectsUpToTwoTypingErrors) {
    EXPECT_EQ(didYouMean("stats", known), "; did you mean 'status'?");
    EXPECT_EQ(didYouMean("statuss", known), "; did you mean 'status'?");
    EXPECT_EQ(didYouMean("statys", known), "; did you mean 'status'?");
    EXPECT_EQ(didYouMean("setitngs", known), "; did you mean 'settings'?");
    EXPECT_EQ(didYouMean("acount", known), "; did you mean 'account'?");
    EXPECT_EQ(didYouMean("acounnt", known), "; did you mean 'account'?");
}

TEST(Suggestion, IsAbsentForMoreThanTwoErrors) {
    EXPECT_EQ(didYouMean("stt", known), "; did you mean 'set'?") << "one error";
    EXPECT_EQ(didYouMean("sta", known), "");
    EXPECT_EQ(didYouMean("frobnicate", known), "");
    EXPECT_EQ(didYouMean("", known), "");
    EXPECT_EQ(didYouMean("s", known), "") << "too little of a short word is right";
    EXPECT_EQ(didYouMean("status", {}), "");
}

TEST(Suggestion, PrefersTheNearestAndThenTheFirstOfItsWords) {
    EXPECT_EQ(didYouMean("statu", known), "; did you mean 'status'?");
    EXPECT_EQ(didYouMean("bet", known), "; did you mean 'get'?");
    EXPECT_EQ(didYouMean("sett", known), "; did you mean 'set'?");
}

TEST(Suggestion, IsAbsentForAVeryLongWord) {
    EXPECT_EQ(didYouMean(std::string(1'000'000, 's'), known), "");
}

} // namespace
} // namespace wardlock::cli
