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

    int received() const { return received_; }
    void end() { subscription_.end(); }

private:
    static void receive(CFNotificationCenter&, void* self, std::string_view, const std::string*,
                        const platform::Dictionary*) {
        auto& listener = *static_cast<Listener*>(self);
        ++listener.received_;
        listener.work_();
    }

    int received_ = 0;
    std::function<void()> work_;
    platform::Subscription subscription_ = CFNotificationCenter::current().addObserver(
        this, receive, "N", nullptr, platform::CFNotificationSuspensionBehavior::DeliverImmediately);
};

class ObserverSubscription : public BusFixture {
protected:
    static void postHere() { CFNotificationCenter::current().postNotification("N", nullptr, nullptr, true); }
};

TEST_F(ObserverSubscription, EndsWithTheObserver) {
    int received = 0;
    auto gone = std::make_unique<Listener>([&received] { ++received; });
    postHere();
    gone.reset();
    postHere();
    EXPECT_EQ(received, 1);
}

TEST_F(ObserverSubscription, EndsForNotificationsOfOtherProcesses) {
    Listener stays;
    int received = 0;
    auto gone = std::make_unique<Listener>([&received] { ++received; });
    gone.reset();
    post({"N"});
    EXPECT_TRUE(platform::MainLoop::shared().runUntil([&] { return stays.received() == 1; }, testTimeout));
    EXPECT_EQ(received, 0);
}

TEST_F(ObserverSubscription, CanEndDuringDelivery) {
    std::unique_ptr<Listener> later;
    Listener first([&later] { later.reset(); });
    later = std::make_unique<Listener>();
    Listener own([&own] { own.end(); });
    postHere();
    postHere();
    EXPECT_EQ(later, nullptr);
    EXPECT_EQ(first.received(), 2);
    EXPECT_EQ(own.received(), 1);
}

} // namespace
} // namespace wardlock::test
