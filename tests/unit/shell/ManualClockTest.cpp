#include "shell/input/ManualClock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <utility>
#include <vector>

using namespace std::chrono_literals;
using wardlock::shell::ManualClock;

TEST(ManualClock, StopsUntilItIsStepped) {
    ManualClock clock;
    bool ran = false;
    clock.after(400ms, [&] { ran = true; });
    EXPECT_EQ(clock.now(), 0s);
    clock.step(0.39);
    EXPECT_FALSE(ran);
    clock.step(0.02);
    EXPECT_TRUE(ran);
}

TEST(ManualClock, RunsEachActionAtItsOwnTimeInTheRequestedOrder) {
    ManualClock clock;
    std::vector<std::pair<int, ManualClock::Time>> ran;
    clock.after(2s, [&] { ran.emplace_back(3, clock.now()); });
    clock.after(1s, [&] { ran.emplace_back(1, clock.now()); });
    clock.after(1s, [&] { ran.emplace_back(2, clock.now()); });
    clock.step(5);
    EXPECT_EQ(ran, (std::vector<std::pair<int, ManualClock::Time>>{{1, 1s}, {2, 1s}, {3, 2s}}));
    EXPECT_EQ(clock.now(), 5s);
}

TEST(ManualClock, RunsAnActionOfAnotherActionInTheSameStep) {
    ManualClock clock;
    ManualClock::Time second{};
    clock.after(1s, [&] { clock.after(1s, [&] { second = clock.now(); }); });
    clock.step(2);
    EXPECT_EQ(second, 2s);
}

TEST(ManualClock, ReachesATimeInAnyNumberOfEqualSteps) {
    for (int steps = 1; steps <= 2000; ++steps) {
        ManualClock clock;
        bool ran = false;
        clock.after(400ms, [&] { ran = true; });
        for (int step = 1; step < steps; ++step)
            clock.step(0.4 / steps);
        EXPECT_FALSE(ran) << steps << " steps";
        clock.step(0.4 / steps);
        EXPECT_TRUE(ran) << steps << " steps";
        EXPECT_EQ(clock.now(), 400ms) << steps << " steps";
    }
}

TEST(ManualClock, ReachesATimeInStepsOfDifferentLength) {
    const std::vector<std::vector<double>> patterns{{0.1, 0.2, 0.1},
                                                    {0.3, 0.1},
                                                    {0.1, 0.1, 0.1, 0.1},
                                                    {0.35, 0.05},
                                                    {0.07, 0.33},
                                                    {0.13, 0.27},
                                                    {0.4 / 3, 0.4 / 3, 0.4 / 3},
                                                    {1e-10, 0.4 - 1e-10},
                                                    {0.399999999, 0.000000001}};
    for (const double before : {0.0, 0.1, 0.7, 1.0 / 3, 86'400.1, 1e6})
        for (const auto& pattern : patterns) {
            ManualClock clock;
            clock.step(before);
            bool ran = false;
            clock.after(400ms, [&] { ran = true; });
            for (const double step : pattern) {
                EXPECT_FALSE(ran);
                clock.step(step);
            }
            EXPECT_TRUE(ran) << "after " << before << ", steps from " << pattern.front();
        }
}
