#include "platform/runtime/CFNotificationCenter.h"
#include "platform/runtime/MainLoop.h"
#include "tests/support/BusFixture.h"

#include <gtest/gtest.h>

#include <future>
#include <optional>

namespace wardlock::test {
namespace {

/// Posts from this process, which keeps its connection from one post to the next.
void postHere(std::string_view name, const std::string& object, std::size_t bytes = 0) {
    const platform::Dictionary userInfo{{"bytes", std::string(bytes, 'x')}};
    CFNotificationCenterPostNotification(platform::CFNotificationCenterGetDistributedCenter(), name, &object,
                                         bytes ? &userInfo : nullptr, true);
}

class LostBus : public BusFixture {
protected:
    /// The observer's next line, while this process's loop runs.
    static std::optional<std::string> lineWhileProcessing(Process& observer) {
        auto line = std::async(std::launch::async, [&] { return observer.readLine(); });
        const auto isThere = [&] {
            return line.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
        };
        while (!isThere())
            platform::MainLoop::shared().runUntil(isThere, std::chrono::milliseconds(10));
        return line.get();
    }
};

TEST_F(LostBus, EndsNeitherPosterNorObserver) {
    bus.kill();
    const auto observer = observe({"N"});
    post({"N"});
    EXPECT_NE(observer->id(), 0);
}

TEST_F(LostBus, NotifiesAnObserverOnceWhenAMissingBusAppears) {
    bus.kill();
    const auto observer = observe({"N"});
    bus.start();
    EXPECT_EQ(observer->readLine(), "N|-|-");
    post({"N", "--object", "next"});
    EXPECT_EQ(observer->readLine(), "N|next|-");
}

TEST_F(LostBus, NotifiesAnObserverOnceWithoutUserInfoWhenItReturns) {
    const auto observer = observe({"N"});
    post({"N", "--object", "before"});
    EXPECT_EQ(observer->readLine(), "N|before|-");
    bus.kill();
    bus.start();
    EXPECT_EQ(observer->readLine(), "N|-|-");
    post({"N", "--object", "after"});
    EXPECT_EQ(observer->readLine(), "N|after|-");
}

TEST_F(LostBus, NotifiesAnObserverOfAnObjectWithThatObjectWhenItReturns) {
    const auto observer = observe({"N", "--object", "mine"});
    bus.kill();
    bus.start();
    EXPECT_EQ(observer->readLine(), "N|mine|-");
}

TEST_F(LostBus, LeavesTheObserverWorkingAfterManyLosses) {
    const auto observer = observe({"N"});
    for (int i = 0; i < 5; ++i) {
        bus.kill();
        bus.start();
        ASSERT_EQ(observer->readLine(), "N|-|-");
    }
    post({"N", "--object", "after"});
    EXPECT_EQ(observer->readLine(), "N|after|-");
}

TEST_F(LostBus, SendsAPostOverTheBusThatReturnedEvenIfItsLossWasNotNoticed) {
    postHere("N", "before");
    bus.kill();
    bus.start();
    const auto observer = observe({"N"});
    postHere("N", "after");
    EXPECT_EQ(lineWhileProcessing(*observer), "N|after|-");
}

TEST_F(LostBus, SendsInOrderWhatWasPostedWhileThereWasNoBus) {
    bus.kill();
    for (const char* object : {"1", "2", "3"})
        postHere("N", object);
    bus.start();
    const auto observer = observe({"N"});
    postHere("N", "4");
    for (const char* line : {"N|1|-", "N|2|-", "N|3|-", "N|4|-"})
        EXPECT_EQ(lineWhileProcessing(*observer), line);
}

TEST_F(LostBus, LetsAPosterEndWhenTheBusIsStopped) {
    bus.stop();
    post({"N", "--times", "20"});
    bus.resume();
}

TEST_F(LostBus, LetsAnObserverStartOnAStoppedBusAndNotifiesItOnceWhenTheBusResumes) {
    bus.stop();
    const auto observer = observe({"N"});
    bus.resume();
    EXPECT_EQ(observer->readLine(), "N|-|-");
    post({"N", "--object", "next"});
    EXPECT_EQ(observer->readLine(), "N|next|-");
}

TEST_F(LostBus, ReceivesPostsOfAStoppedBusWhenItResumes) {
    const auto observer = observe({"N"});
    postHere("N", "before");
    bus.stop();
    postHere("N", "meanwhile");
    bus.resume();
    EXPECT_EQ(lineWhileProcessing(*observer), "N|before|-");
    EXPECT_EQ(lineWhileProcessing(*observer), "N|meanwhile|-");
}

TEST_F(LostBus, LosesNoPostBehindAFullSocket) {
    const auto observer = observe({"N"});
    postHere("N", "before");
    bus.stop();
    for (int i = 0; i < 2000; ++i)
        postHere("M", "flood", 10'000);
    bus.resume();
    postHere("N", "after");
    EXPECT_EQ(lineWhileProcessing(*observer), "N|before|-");
    EXPECT_EQ(lineWhileProcessing(*observer), "N|after|-");
}

TEST_F(LostBus, TreatsAnInvalidAddressAsALostBus) {
    for (const char* address : {"nonsense", "unix:", "unix:path=", "autolaunch:", ";;;", "unix:path=/%zz"}) {
        environment.set("DBUS_SESSION_BUS_ADDRESS", address);
        const auto observer = observe({"N"});
        post({"N"});
    }
}

} // namespace
} // namespace wardlock::test
