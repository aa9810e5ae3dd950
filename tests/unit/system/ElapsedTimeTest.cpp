#include "platform/services/ElapsedTime.h"

#include <gtest/gtest.h>

TEST(ElapsedTime, NeverGoesBackAndIsNoShorterThanTheTimeAwake) {
    const auto awake = std::chrono::steady_clock::now().time_since_epoch();
    const auto first = platform::elapsedTime();
    EXPECT_GE(first, awake);
    EXPECT_GE(platform::elapsedTime(), first);
}
