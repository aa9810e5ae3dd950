#include "tests/support/SettingsApplicationFixture.h"

#include <optional>

using wardlock::shell::Page;
using wardlock::shell::ScreenObserver;

namespace {

/// Counts the changes of pages, and does some work at each.
struct PageObserver : ScreenObserver {
    void pagesChanged(bool) override {
        ++changes;
        if (work)
            work();
    }
    int changes = 0;
    std::function<void()> work;
};

class ScreenObservers : public wardlock::test::SettingsApplicationFixture {};

} // namespace

TEST_F(ScreenObservers, AreNotNotifiedAfterTheirSubscriptionHasEnded) {
    start();
    PageObserver observer;
    auto subscription = settings().observe(observer);
    tap("Wardlock");
    EXPECT_EQ(observer.changes, 1);
    subscription.end();
    EXPECT_TRUE(settings().page().goBack());
    EXPECT_EQ(observer.changes, 1);
}

TEST_F(ScreenObservers, CanEndTheirOwnAndAnothersSubscriptionWhileNotified) {
    start();
    PageObserver first;
    std::optional<PageObserver> second(std::in_place);
    auto ofFirst = settings().observe(first);
    auto ofSecond = settings().observe(*second);
    first.work = [&] {
        ofFirst.end();
        ofSecond.end();
        second.reset();
    };
    tap("Wardlock");
    EXPECT_TRUE(settings().page().goBack());
    EXPECT_EQ(first.changes, 1);
}

TEST_F(ScreenObservers, LeaveTheApplicationUnregisteredFromTheCentreWhenItEnds) {
    EXPECT_EQ(center.observerCount(), 0U);
    start();
    EXPECT_EQ(center.observerCount(), 1U);
    quit();
    EXPECT_EQ(center.observerCount(), 0U);
}
