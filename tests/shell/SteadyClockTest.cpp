#include "shell/SteadyClock.h"

#include <gtest/gtest.h>

#include <vector>

using wardlock::shell::SteadyClock;

TEST(SteadyClock, NeverGoesBack) {
    SteadyClock clock;
    const double first = clock.now();
    EXPECT_GE(clock.now(), first);
    EXPECT_GE(first, 0);
}

TEST(SteadyClock, TellsHowLongThereIsToWait) {
    SteadyClock clock;
    EXPECT_FALSE(clock.secondsToNext());
    clock.after(1000, [] {});
    ASSERT_TRUE(clock.secondsToNext());
    EXPECT_GT(*clock.secondsToNext(), 0);
    clock.after(0, [] {});
    EXPECT_EQ(clock.secondsToNext(), 0);
}

TEST(SteadyClock, RunsWhatIsDueInOrderAndLeavesTheRest) {
    SteadyClock clock;
    std::vector<int> ran;
    clock.after(1000, [&] { ran.push_back(3); });
    clock.after(0, [&] { ran.push_back(1); });
    clock.after(-5, [&] { ran.push_back(2); });
    clock.runDue();
    EXPECT_EQ(ran, (std::vector<int>{1, 2}));
    EXPECT_TRUE(clock.secondsToNext());
}
