#include "shell/guard/IdleTimer.h"

#include "shell/input/ManualClock.h"

#include <gtest/gtest.h>

#include <chrono>

namespace wardlock::test {
namespace {

using namespace std::chrono_literals;

/// Runs its actions on time, except that it goes on while the machine sleeps, when nothing runs.
class SleepingClock : public shell::ManualClock {
public:
    Time now() override { return ManualClock::now() + slept_; }
    void sleep(Time time) { slept_ += time; }

private:
    Time slept_{};
};

class IdleTimer : public ::testing::Test {
protected:
    static constexpr double hour = 3600;

    SleepingClock clock;
    int notified = 0;
    shell::IdleTimer timer{clock, [this] { ++notified; }};
};

} // namespace

TEST_F(IdleTimer, NotifiesOnceAfterEachHour) {
    timer.run(true);
    clock.step(hour - 1);
    EXPECT_EQ(notified, 0);
    clock.step(1);
    EXPECT_EQ(notified, 1);
    clock.step(hour - 1);
    EXPECT_EQ(notified, 1);
    clock.step(1);
    EXPECT_EQ(notified, 2);
}

TEST_F(IdleTimer, NotifiesOfNothingWhileItDoesNotRun) {
    clock.step(2 * hour);
    timer.noteActivity();
    timer.run(true);
    timer.run(false);
    clock.step(2 * hour);
    timer.noteActivity();
    EXPECT_EQ(notified, 0);
}

TEST_F(IdleTimer, CountsFromItsLastStart) {
    timer.run(true);
    clock.step(hour - 1);
    timer.run(false);
    timer.run(true);
    timer.run(true);
    clock.step(hour - 1);
    EXPECT_EQ(notified, 0);
    clock.step(1);
    EXPECT_EQ(notified, 1);
}

TEST_F(IdleTimer, CountsFromTheLastActivity) {
    timer.run(true);
    clock.step(hour - 1);
    timer.noteActivity();
    clock.step(hour - 1);
    EXPECT_EQ(notified, 0);
    clock.step(1);
    EXPECT_EQ(notified, 1);
}

TEST_F(IdleTimer, CountsTheTimeForWhichTheMachineWasAsleep) {
    timer.run(true);
    clock.step(30);
    clock.sleep(2h);
    clock.step(60);
    EXPECT_EQ(notified, 1);
}

TEST_F(IdleTimer, NotifiesBeforeTheFirstActivityAfterTheMachineWasAsleep) {
    timer.run(true);
    clock.sleep(2h);
    timer.noteActivity();
    EXPECT_EQ(notified, 1);
    timer.noteActivity();
    EXPECT_EQ(notified, 1);
}

} // namespace wardlock::test
