#include "platform/runtime/MainLoop.h"

#include "platform/runtime/NSOperationQueue.h"
#include "tests/support/TestTimeout.h"

#include <gtest/gtest.h>

#include <poll.h>
#include <stdexcept>
#include <thread>

using platform::MainLoop;
using platform::NSOperationQueue;

namespace {

using namespace std::chrono_literals;

bool isReadable(std::chrono::milliseconds timeout = 0ms) {
    pollfd watched{MainLoop::shared().descriptor(), POLLIN, 0};
    return poll(&watched, 1, static_cast<int>(timeout.count())) == 1;
}

TEST(MainLoop, BecomesReadableWhenAnOperationWaits) {
    EXPECT_FALSE(isReadable());
    NSOperationQueue::mainQueue().addOperation([] {});
    EXPECT_TRUE(isReadable());
    MainLoop::shared().process();
    EXPECT_FALSE(isReadable());
}

TEST(MainLoop, StaysReadableForOperationsThatOperationsAdd) {
    int ran = 0;
    NSOperationQueue::mainQueue().addOperation(
        [&] { NSOperationQueue::mainQueue().addOperation([&] { ++ran; }); });
    MainLoop::shared().process();
    EXPECT_TRUE(isReadable());
    MainLoop::shared().process();
    EXPECT_EQ(ran, 1);
    EXPECT_FALSE(isReadable());
}

TEST(MainLoop, StaysReadableForOperationsBehindOneThatThrows) {
    NSOperationQueue::mainQueue().addOperation([] { throw std::runtime_error("thrown"); });
    NSOperationQueue::mainQueue().addOperation([] {});
    EXPECT_THROW(MainLoop::shared().process(), std::runtime_error);
    EXPECT_TRUE(isReadable());
    MainLoop::shared().process();
    EXPECT_FALSE(isReadable());
}

TEST(MainLoop, WakesAHostThatWaitsWhenAnotherThreadAddsAnOperation) {
    bool ran = false;
    std::thread other([&] { NSOperationQueue::mainQueue().addOperation([&] { ran = true; }); });
    EXPECT_TRUE(MainLoop::shared().runUntil([&] { return ran; }, wardlock::test::testTimeout));
    other.join();
}

TEST(MainLoop, RunsUntilTheTimeout) {
    EXPECT_FALSE(MainLoop::shared().runUntil([] { return false; }, 1ms));
}

TEST(MainLoop, ProcessesOnceEvenWithoutTime) {
    bool ran = false;
    NSOperationQueue::mainQueue().addOperation([&] { ran = true; });
    EXPECT_TRUE(MainLoop::shared().runUntil([&] { return ran; }, 0ms));
}

} // namespace
