#include "shell/Door.h"

#include "shell/DoorClock.h"
#include "shell/ManualClock.h"

#include <gtest/gtest.h>

#include <csignal>
#include <stdexcept>

using wardlock::shell::Door;
using wardlock::shell::DoorClock;
using wardlock::shell::ManualClock;

namespace {

[[noreturn]] void fail() {
    throw std::runtime_error("a page failed");
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

TEST(Door, EndsTheProcessWithWhatAPageThrows) {
    Door door([] {});
    EXPECT_EXIT(door.enter(fail), testing::KilledBySignal(SIGABRT), "");
    EXPECT_EXIT(door.enterFromLoop(fail), testing::KilledBySignal(SIGABRT), "");
}

TEST(Door, ContainsWhatNobodyAskedFor) {
    int settled = 0;
    Door door([&] { ++settled; });
    EXPECT_FALSE(door.tryEnter(fail));
    EXPECT_TRUE(door.tryEnter([] {}));
    EXPECT_FALSE(door.isInside());
    EXPECT_EQ(settled, 2);
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
