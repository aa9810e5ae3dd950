#include "shell/screen/Door.h"

#include "platform/values/NSException.h"
#include "shell/input/DoorClock.h"
#include "shell/input/ManualClock.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <stdexcept>
#include <string>

using wardlock::shell::Door;
using wardlock::shell::DoorClock;
using wardlock::shell::ManualClock;

namespace {

[[noreturn]] void fail() {
    throw std::runtime_error("a page failed");
}

/// Fails, or returns something that a caller has to clean up.
std::string failOnDemand(bool failing) {
    if (failing)
        fail();
    return "a text of a length that needs memory of its own";
}

void reportExceptions() {
    platform::NSSetUncaughtExceptionHandler([](const platform::NSException& exception) {
        std::fprintf(stderr, "[handler: %s]\n", exception.reason().c_str());
    });
}

} // namespace

TEST(Door, SettlesOnceWhenTheLastCallHasLeft) {
    int settled = 0;
    Door door([&] { ++settled; });
    const int answer = door.enter([&] {
        door.enter([] {});
        EXPECT_EQ(settled, 0);
        return 7;
    });
    EXPECT_EQ(answer, 7);
    EXPECT_EQ(settled, 1);
}

TEST(Door, TellsAPersonFromTheLoop) {
    Door door([] {});
    EXPECT_FALSE(door.isInside());
    door.enterFromLoop([&] {
        EXPECT_TRUE(door.isInside());
        EXPECT_FALSE(door.personIsInside());
        door.enter([&] { EXPECT_TRUE(door.personIsInside()); });
    });
    EXPECT_FALSE(door.isInside());
}

TEST(DoorDeathTest, EndsTheProcessWithAReportOfWhatAPageThrows) {
    Door door([] {});
    reportExceptions();
    const auto reported = "\\[handler: a page failed\\]";
    EXPECT_EXIT(door.enter(fail), testing::KilledBySignal(SIGABRT), reported);
    EXPECT_EXIT(door.enterFromLoop(fail), testing::KilledBySignal(SIGABRT), reported);
    EXPECT_EXIT((void)door.enter([] { return failOnDemand(true) + failOnDemand(false); }),
                testing::KilledBySignal(SIGABRT), reported);
}

TEST(DoorDeathTest, EndsTheProcessWithAReportOfWhatANotifiedFrontEndThrows) {
    reportExceptions();
    Door door(fail);
    const auto reported = "\\[handler: a page failed\\]";
    EXPECT_EXIT(door.enter([] {}), testing::KilledBySignal(SIGABRT), reported);
    EXPECT_EXIT(door.tryEnter([] {}), testing::KilledBySignal(SIGABRT), reported);
}

TEST(Door, ContainsWhatNobodyAskedFor) {
    int settled = 0;
    Door door([&] { ++settled; });
    EXPECT_FALSE(door.tryEnter(fail));
    EXPECT_TRUE(door.tryEnter([] {}));
    EXPECT_FALSE(door.isInside());
    EXPECT_EQ(settled, 2);
}

TEST(Door, ContainsWhatAnEntryWithinThrows) {
    Door door([] {});
    bool passed = false;
    EXPECT_FALSE(door.tryEnter([&] {
        door.enter(fail);
        passed = true;
    }));
    EXPECT_FALSE(passed);
    EXPECT_FALSE(door.isInside());
    EXPECT_FALSE(door.personIsInside());
}

TEST(DoorClock, EntersThroughTheDoorWhenTheTimeHasCome) {
    ManualClock clock;
    Door door([] {});
    DoorClock doorClock(clock, door);
    bool inside = false;
    doorClock.after(std::chrono::seconds(1), [&] { inside = door.personIsInside(); });
    clock.step(1);
    EXPECT_TRUE(inside);
    EXPECT_EQ(doorClock.now(), std::chrono::seconds(1));
}

TEST(DoorClock, RunsNothingAnyMoreOnceItIsGone) {
    ManualClock clock;
    Door door([] {});
    bool ran = false;
    {
        DoorClock doorClock(clock, door);
        doorClock.after(std::chrono::seconds(1), [&] { ran = true; });
    }
    clock.step(2);
    EXPECT_FALSE(ran);
}
