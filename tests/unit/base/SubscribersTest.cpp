#include "platform/base/Subscribers.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

using platform::Subscribers;
using platform::Subscription;

namespace {

using Calls = Subscribers<std::function<void()>>;

class RegisteredSubscribers : public ::testing::Test {
protected:
    Subscription add(
        char name, std::function<void()> work = [] {}) {
        return calls.add([this, name, work = std::move(work)] {
            called += name;
            work();
        });
    }
    std::string deliver() {
        called.clear();
        calls.forEach([](const std::function<void()>& call) { call(); });
        return called;
    }

    Calls calls;
    std::string called;
};

TEST_F(RegisteredSubscribers, AreCalledInTheOrderOfTheirRegistration) {
    const auto a = add('a');
    const auto b = add('b');
    EXPECT_EQ(deliver(), "ab");
}

TEST_F(RegisteredSubscribers, LeaveNothingRegisteredWhenTheirSubscriptionsAreDestroyed) {
    {
        const auto a = add('a');
        EXPECT_EQ(calls.size(), 1U);
    }
    EXPECT_EQ(calls.size(), 0U);
    EXPECT_EQ(deliver(), "");
}

TEST_F(RegisteredSubscribers, StayWhenTheirSubscriptionIsReleased) {
    add('a').release();
    EXPECT_EQ(deliver(), "a");
}

TEST_F(RegisteredSubscribers, CanEndTheirOwnSubscriptionDuringDelivery) {
    Subscription own;
    own = add('a', [&] { own.end(); });
    const auto b = add('b');
    EXPECT_EQ(deliver(), "ab");
    EXPECT_EQ(deliver(), "b");
}

TEST_F(RegisteredSubscribers, AreNotCalledAfterAnotherHasEndedTheirSubscription) {
    Subscription later;
    const auto a = add('a', [&] { later.end(); });
    later = add('b');
    const auto c = add('c');
    EXPECT_EQ(deliver(), "ac");
}

TEST_F(RegisteredSubscribers, AreCalledOnceWhenAnEarlierSubscriptionEndsDuringDelivery) {
    auto earlier = add('a');
    const auto b = add('b', [&] { earlier.end(); });
    const auto c = add('c');
    EXPECT_EQ(deliver(), "abc");
    EXPECT_EQ(deliver(), "bc");
}

TEST_F(RegisteredSubscribers, AreCalledFromTheNextDeliveryOnWhenAddedDuringOne) {
    Subscription added;
    const auto a = add('a', [&] {
        if (!added)
            added = add('b');
    });
    EXPECT_EQ(deliver(), "a");
    EXPECT_EQ(deliver(), "ab");
}

TEST_F(RegisteredSubscribers, MayDestroyTheListDuringDelivery) {
    std::optional<Calls> list(std::in_place);
    int calls = 0;
    const auto first = list->add([&] {
        ++calls;
        list.reset();
    });
    list->forEach([](const std::function<void()>& call) { call(); });
    EXPECT_EQ(calls, 1);
}

TEST(Subscription, MayOutliveTheList) {
    std::optional<Calls> list(std::in_place);
    auto subscription = list->add([] {});
    list.reset();
    subscription.end();
    EXPECT_FALSE(subscription);
}

TEST(Subscription, EndsOnceAlthoughItWasMoved) {
    int ends = 0;
    {
        Subscription first([&] { ++ends; });
        Subscription second(std::move(first));
        second.end();
    }
    EXPECT_EQ(ends, 1);
}

TEST(Subscription, EndsWhenAnotherIsAssigned) {
    std::vector<int> ended;
    Subscription subscription([&] { ended.push_back(1); });
    subscription = Subscription([&] { ended.push_back(2); });
    EXPECT_EQ(ended, std::vector<int>{1});
}

} // namespace
