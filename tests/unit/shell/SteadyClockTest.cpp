#include "shell/input/SteadyClock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <vector>

using namespace std::chrono_literals;
using wardlock::shell::SteadyClock;

TEST(SteadyClock, NeverGoesBack) {
    SteadyClock clock;
    const auto first = clock.now();
    EXPECT_GE(clock.now(), first);
    EXPECT_GE(first, 0s);
}

TEST(SteadyClock, ReturnsTheTimeUntilTheNextAction) {
    SteadyClock clock;
    EXPECT_FALSE(clock.timeToNext());
    clock.after(1000s, [] {});
    ASSERT_TRUE(clock.timeToNext());
    EXPECT_GT(*clock.timeToNext(), 0s);
    clock.after(0s, [] {});
    EXPECT_EQ(clock.timeToNext(), 0s);
}

TEST(SteadyClock, RunsDueActionsInOrderAndLeavesTheRest) {
    SteadyClock clock;
    std::vector<int> ran;
    clock.after(1000s, [&] { ran.push_back(3); });
    clock.after(0s, [&] { ran.push_back(1); });
    clock.after(-5s, [&] { ran.push_back(2); });
    clock.runDue();
    EXPECT_EQ(ran, (std::vector<int>{1, 2}));
    EXPECT_TRUE(clock.timeToNext());
}
