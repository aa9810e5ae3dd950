#include "shell/ManualClock.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

using wardlock::shell::ManualClock;

TEST(ManualClock, StandsStillUntilItIsStepped) {
    ManualClock clock;
    bool ran = false;
    clock.after(0.4, [&] { ran = true; });
    EXPECT_EQ(clock.now(), 0);
    clock.step(0.39);
    EXPECT_FALSE(ran);
    clock.step(0.02);
    EXPECT_TRUE(ran);
}

TEST(ManualClock, RunsEachActionAtItsOwnTimeInTheOrderAskedFor) {
    ManualClock clock;
    std::vector<std::pair<int, double>> ran;
    clock.after(2, [&] { ran.emplace_back(3, clock.now()); });
    clock.after(1, [&] { ran.emplace_back(1, clock.now()); });
    clock.after(1, [&] { ran.emplace_back(2, clock.now()); });
    clock.step(5);
    EXPECT_EQ(ran, (std::vector<std::pair<int, double>>{{1, 1}, {2, 1}, {3, 2}}));
    EXPECT_EQ(clock.now(), 5);
}

TEST(ManualClock, RunsWithinTheSameStepWhatAnActionAsksFor) {
    ManualClock clock;
    double second = -1;
    clock.after(1, [&] { clock.after(1, [&] { second = clock.now(); }); });
    clock.step(2);
    EXPECT_EQ(second, 2);
}
