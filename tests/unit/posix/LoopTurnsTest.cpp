#include "linux/posix/LoopSources.h"
#include "platform/runtime/MainLoop.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>

using platform::MainLoop;
using platform::posix::LoopSource;
using platform::posix::LoopSources;

namespace {

/// Counts its turns, and does some work in each.
class Worker : public LoopSource {
public:
    int descriptor() const override { return -1; }
    short events() const override { return 0; }
    std::optional<Clock::time_point> deadline() const override { return std::nullopt; }
    void process() override {
        ++turns;
        if (const auto doing = work)
            doing();
    }

    int turns = 0;
    std::function<void()> work;
    platform::Subscription subscription = LoopSources::shared().add(*this);
};

} // namespace

TEST(LoopTurns, EndWithTheSource) {
    auto gone = std::make_unique<Worker>();
    int turns = 0;
    gone->work = [&turns] { ++turns; };
    MainLoop::shared().process();
    gone.reset();
    MainLoop::shared().process();
    EXPECT_EQ(turns, 1);
}

TEST(LoopTurns, SkipASourceThatAnotherDestroysInTheSameTurn) {
    Worker first;
    auto second = std::make_unique<Worker>();
    Worker third;
    first.work = [&second] { second.reset(); };
    MainLoop::shared().process();
    EXPECT_EQ(second, nullptr);
    EXPECT_EQ(third.turns, 1);
}

TEST(LoopTurns, ReachEverySourceWhenOneEndsItsOwnSubscription) {
    Worker first;
    Worker second;
    first.work = [&first] { first.subscription.end(); };
    MainLoop::shared().process();
    MainLoop::shared().process();
    EXPECT_EQ(first.turns, 1);
    EXPECT_EQ(second.turns, 2);
}
