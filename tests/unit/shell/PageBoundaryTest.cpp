#include "shell/screen/PageBoundary.h"

#include "platform/values/NSException.h"
#include "shell/input/BoundaryClock.h"
#include "shell/input/ManualClock.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <stdexcept>
#include <string>

using wardlock::shell::BoundaryClock;
using wardlock::shell::ManualClock;
using wardlock::shell::PageBoundary;

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

TEST(PageBoundary, SettlesOnceWhenTheLastCallHasLeft) {
    int settled = 0;
    PageBoundary boundary([&] { ++settled; });
    const int result = boundary.enter([&] {
        boundary.enter([] {});
        EXPECT_EQ(settled, 0);
        return 7;
    });
    EXPECT_EQ(result, 7);
    EXPECT_EQ(settled, 1);
}

TEST(PageBoundary, DistinguishesTheUserFromTheLoop) {
    PageBoundary boundary([] {});
    EXPECT_FALSE(boundary.isInside());
    boundary.enterFromLoop([&] {
        EXPECT_TRUE(boundary.isInside());
        EXPECT_FALSE(boundary.isEnteredByFrontEnd());
        boundary.enter([&] { EXPECT_TRUE(boundary.isEnteredByFrontEnd()); });
    });
    EXPECT_FALSE(boundary.isInside());
}

TEST(PageBoundary, EndsTheProcessWithAReportOfAPagesException) {
    PageBoundary boundary([] {});
    reportExceptions();
    const auto reported = "\\[handler: a page failed\\]";
    EXPECT_EXIT(boundary.enter(fail), testing::KilledBySignal(SIGABRT), reported);
    EXPECT_EXIT(boundary.enterFromLoop(fail), testing::KilledBySignal(SIGABRT), reported);
    EXPECT_EXIT((void)boundary.enter([] { return failOnDemand(true) + failOnDemand(false); }),
                testing::KilledBySignal(SIGABRT), reported);
}

TEST(PageBoundary, EndsTheProcessWithAReportOfANotifiedFrontEndsException) {
    reportExceptions();
    PageBoundary boundary(fail);
    const auto reported = "\\[handler: a page failed\\]";
    EXPECT_EXIT(boundary.enter([] {}), testing::KilledBySignal(SIGABRT), reported);
    EXPECT_EXIT(boundary.tryEnter([] {}), testing::KilledBySignal(SIGABRT), reported);
}

TEST(PageBoundary, ContainsTheExceptionsOfARefresh) {
    int settled = 0;
    PageBoundary boundary([&] { ++settled; });
    EXPECT_FALSE(boundary.tryEnter(fail));
    EXPECT_TRUE(boundary.tryEnter([] {}));
    EXPECT_FALSE(boundary.isInside());
    EXPECT_EQ(settled, 2);
}

TEST(PageBoundary, ContainsTheExceptionsOfANestedEntry) {
    PageBoundary boundary([] {});
    bool passed = false;
    EXPECT_FALSE(boundary.tryEnter([&] {
        boundary.enter(fail);
        passed = true;
    }));
    EXPECT_FALSE(passed);
    EXPECT_FALSE(boundary.isInside());
    EXPECT_FALSE(boundary.isEnteredByFrontEnd());
}

TEST(BoundaryClock, EntersThroughTheBoundaryWhenTheTimeHasCome) {
    ManualClock clock;
    PageBoundary boundary([] {});
    BoundaryClock boundaryClock(clock, boundary);
    bool inside = false;
    boundaryClock.after(std::chrono::seconds(1), [&] { inside = boundary.isEnteredByFrontEnd(); });
    clock.step(1);
    EXPECT_TRUE(inside);
    EXPECT_EQ(boundaryClock.now(), std::chrono::seconds(1));
}

TEST(BoundaryClock, RunsNothingOnceItIsGone) {
    ManualClock clock;
    PageBoundary boundary([] {});
    bool ran = false;
    {
        BoundaryClock boundaryClock(clock, boundary);
        boundaryClock.after(std::chrono::seconds(1), [&] { ran = true; });
    }
    clock.step(2);
    EXPECT_FALSE(ran);
}
