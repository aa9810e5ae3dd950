#include "platform/runtime/CFNotificationCenterClass.h"
#include "platform/runtime/MainLoop.h"
#include "tests/support/BusFixture.h"
#include "tests/support/TestTimeout.h"

#include <gtest/gtest.h>

#include <functional>

using platform::CFNotificationCenter;

namespace wardlock::test {
namespace {

/// An observer whose registration ends with it.
class Listener {
public:
    explicit Listener(std::function<void()> work = [] {}) : work_(std::move(work)) {}

    int heard() const { return heard_; }
    void end() { subscription_.end(); }

private:
    static void hear(CFNotificationCenter&, void* self, std::string_view, const std::string*,
                     const platform::Dictionary*) {
        auto& listener = *static_cast<Listener*>(self);
        ++listener.heard_;
        listener.work_();
    }

    int heard_ = 0;
    std::function<void()> work_;
    platform::Subscription subscription_ = CFNotificationCenter::current().addObserver(
        this, hear, "N", nullptr, platform::CFNotificationSuspensionBehavior::DeliverImmediately);
};

class ObserverSubscription : public BusFixture {
protected:
    static void postHere() { CFNotificationCenter::current().postNotification("N", nullptr, nullptr, true); }
};

TEST_F(ObserverSubscription, EndsWithTheObserver) {
    int heard = 0;
    auto gone = std::make_unique<Listener>([&heard] { ++heard; });
    postHere();
    gone.reset();
    postHere();
    EXPECT_EQ(heard, 1);
}

TEST_F(ObserverSubscription, EndsForNotificationsOfOtherProcesses) {
    Listener stays;
    int heard = 0;
    auto gone = std::make_unique<Listener>([&heard] { ++heard; });
    gone.reset();
    post({"N"});
    EXPECT_TRUE(platform::MainLoop::shared().runUntil([&] { return stays.heard() == 1; }, testTimeout));
    EXPECT_EQ(heard, 0);
}

TEST_F(ObserverSubscription, CanEndDuringDelivery) {
    std::unique_ptr<Listener> later;
    Listener first([&later] { later.reset(); });
    later = std::make_unique<Listener>();
    Listener own([&own] { own.end(); });
    postHere();
    postHere();
    EXPECT_EQ(later, nullptr);
    EXPECT_EQ(first.heard(), 2);
    EXPECT_EQ(own.heard(), 1);
}

} // namespace
} // namespace wardlock::test
