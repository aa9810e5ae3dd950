#include "platform/runtime/CFNotificationCenter.h"
#include "platform/runtime/MainLoop.h"
#include "tests/support/BusFixture.h"
#include "tests/support/SampleUserInfo.h"
#include "tests/support/TestTimeout.h"
#include "tests/support/ValueText.h"

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>
#include <stdexcept>

using platform::CFNotificationCenter;
using platform::CFNotificationSuspensionBehavior;

namespace wardlock::test {
namespace {

/// What an observer in this process received. Observers are never removed, so it outlives every test.
struct Received {
    std::vector<std::string> lines;
    std::function<void()> onReceive;

    static void receive(CFNotificationCenter&, void* observer, std::string_view name,
                        const std::string* object, const platform::Dictionary* userInfo) {
        auto& received = *static_cast<Received*>(observer);
        received.lines.push_back(std::string(name) + '|' + (object ? *object : "-") + '|' +
                                 (userInfo ? text(*userInfo) : "-"));
        if (received.onReceive)
            received.onReceive();
    }
};

class DistributedCenter : public BusFixture {
protected:
    static Received& observeHere(std::string_view name, const std::string* object = nullptr) {
        static std::deque<Received> all;
        Received& received = all.emplace_back();
        CFNotificationCenterAddObserver(center(), &received, &Received::receive, name, object,
                                        CFNotificationSuspensionBehavior::DeliverImmediately);
        return received;
    }
    static CFNotificationCenter& center() { return platform::CFNotificationCenterGetDistributedCenter(); }
    static void postHere(std::string_view name, const std::string* object = nullptr,
                         const platform::Dictionary* userInfo = nullptr) {
        CFNotificationCenterPostNotification(center(), name, object, userInfo, true);
    }
    static bool receives(const Received& received, std::size_t count) {
        return platform::MainLoop::shared().runUntil([&] { return received.lines.size() >= count; },
                                                     testTimeout);
    }
};

using Lines = std::vector<std::string>;

TEST_F(DistributedCenter, ReachesAnotherProcessEvenWhenThePosterEndsAtOnce) {
    const auto observer = observe({"N"});
    post({"N", "--sample", "change"});
    EXPECT_EQ(observer->readLine(), R"(N|-|{"key": "kRestrictSiri", "object": true})");
}

TEST_F(DistributedCenter, ReachesEveryProcessThatObservesTheName) {
    const auto first = observe({"N"});
    const auto second = observe({"N"});
    post({"N"});
    EXPECT_EQ(first->readLine(), "N|-|-");
    EXPECT_EQ(second->readLine(), "N|-|-");
}

TEST_F(DistributedCenter, DistinguishesAMissingUserInfoFromAnEmptyOne) {
    const auto observer = observe({"N"});
    postHere("N");
    const platform::Dictionary empty;
    postHere("N", nullptr, &empty);
    EXPECT_EQ(observer->readLine(), "N|-|-");
    EXPECT_EQ(observer->readLine(), "N|-|{}");
}

TEST_F(DistributedCenter, NotifiesAnObserverWithoutObjectOfPostsWithAndWithoutOne) {
    const auto observer = observe({"N"});
    post({"N", "--object", "some"});
    post({"N", "--object", ""});
    post({"N"});
    EXPECT_EQ(observer->readLine(), "N|some|-");
    EXPECT_EQ(observer->readLine(), "N||-");
    EXPECT_EQ(observer->readLine(), "N|-|-");
}

TEST_F(DistributedCenter, NotifiesAnObserverOfAnObjectOfPostsWithThatObjectAlone) {
    const auto observer = observe({"N", "--object", "mine"});
    post({"N"});
    post({"N", "--object", "other"});
    post({"N", "--object", "mine"});
    EXPECT_EQ(observer->readLine(), "N|mine|-");
}

TEST_F(DistributedCenter, NotifiesAnObserverOfItsNameAlone) {
    const auto observer = observe({"N"});
    post({"M"});
    post({"N"});
    EXPECT_EQ(observer->readLine(), "N|-|-");
}

TEST_F(DistributedCenter, KeepsTheOrderOfPosts) {
    const auto observer = observe({"N"});
    for (int i = 0; i < 500; ++i) {
        const platform::Dictionary userInfo{{"number", i}};
        postHere("N", nullptr, &userInfo);
    }
    for (int i = 0; i < 500; ++i)
        ASSERT_EQ(observer->readLine(), "N|-|{\"number\": " + std::to_string(i) + "}");
}

TEST_F(DistributedCenter, NotifiesAnObserverOfThisProcessOnceAndDuringThePost) {
    const auto other = observe({"N"});
    Received& received = observeHere("N");
    const auto userInfo = sampleUserInfo("change");
    postHere("N", nullptr, &userInfo);
    EXPECT_EQ(received.lines.size(), 1u);
    ASSERT_TRUE(other->readLine());
    // What another process posts now comes after any echo of our own post.
    post({"N", "--object", "last"});
    ASSERT_TRUE(receives(received, 2));
    EXPECT_EQ(received.lines, (Lines{R"(N|-|{"key": "kRestrictSiri", "object": true})", "N|last|-"}));
}

TEST_F(DistributedCenter, PassesOverAnObserverWithoutACallback) {
    Received unnotified;
    CFNotificationCenterAddObserver(center(), &unnotified, nullptr, "N", nullptr,
                                    CFNotificationSuspensionBehavior::DeliverImmediately);
    Received& received = observeHere("N");
    postHere("N");
    EXPECT_EQ(received.lines, Lines{"N|-|-"});
    post({"N"});
    EXPECT_TRUE(receives(received, 2));
    EXPECT_TRUE(unnotified.lines.empty());
}

TEST_F(DistributedCenter, ReachesOtherProcessesBeforeAnObserverOfThisProcessThrows) {
    const auto other = observe({"N"});
    Received& received = observeHere("N");
    received.onReceive = [] { throw std::runtime_error("thrown"); };
    EXPECT_THROW(postHere("N"), std::runtime_error);
    received.onReceive = nullptr;
    EXPECT_EQ(other->readLine(), "N|-|-");
}

TEST_F(DistributedCenter, LetsAnObserverPostAndObserve) {
    Received& received = observeHere("N");
    Received* added = nullptr;
    received.onReceive = [&] {
        received.onReceive = nullptr;
        added = &observeHere("N");
        postHere("M");
    };
    const auto other = observe({"M"});
    post({"N"});
    ASSERT_TRUE(receives(received, 1));
    EXPECT_EQ(other->readLine(), "M|-|-");
    ASSERT_TRUE(added);
    EXPECT_TRUE(added->lines.empty()) << "added while dispatching";
    post({"N"});
    EXPECT_TRUE(receives(*added, 1));
}

TEST_F(DistributedCenter, NotifiesAnObserverOfEveryPostOfALongBurst) {
    Received& received = observeHere("N");
    post({"N", "--times", "1000"});
    ASSERT_TRUE(receives(received, 1000));
    EXPECT_EQ(received.lines, Lines(1000, "N|-|-"));
}

TEST_F(DistributedCenter, IgnoresPostsOfAnotherDeviceRoot) {
    const auto observer = observe({"N"});
    const TemporaryFolder otherRoot;
    post({"N", "--object", "foreign"}, with("WARDLOCK_DEVICE_ROOT", otherRoot.path()));
    post({"N", "--object", "own"});
    EXPECT_EQ(observer->readLine(), "N|own|-");
}

TEST_F(DistributedCenter, RecognizesADeviceRootByAnotherPath) {
    const auto observer = observe({"N"});
    const TemporaryFolder elsewhere;
    std::filesystem::create_directory_symlink(root(), elsewhere / "link");
    post({"N", "--object", "by link"}, with("WARDLOCK_DEVICE_ROOT", elsewhere / "link"));
    EXPECT_EQ(observer->readLine(), "N|by link|-");
}

TEST_F(DistributedCenter, RecognizesADeviceRootThatDoesNotExistYetByItsPath) {
    const ProcessSetup missing = with("WARDLOCK_DEVICE_ROOT", folder() / "missing");
    const auto observer = observe({"N"}, missing);
    post({"N", "--object", "own"});
    post({"N", "--object", "missing"}, missing);
    EXPECT_EQ(observer->readLine(), "N|missing|-");
}

TEST_F(DistributedCenter, NotifiesOnlyThisProcessOfANameThatNoBusTransmits) {
    Received& received = observeHere(std::string_view("N\0M", 3));
    postHere(std::string_view("N\0M", 3));
    EXPECT_EQ(received.lines.size(), 1u);
    const auto observer = observe({"N"});
    postHere("N");
    EXPECT_EQ(observer->readLine(), "N|-|-") << "the connection persists";
}

class SampleUserInfo : public DistributedCenter, public ::testing::WithParamInterface<const char*> {};

TEST_P(SampleUserInfo, ArrivesUnchanged) {
    const auto observer = observe({"N", "--sample", GetParam()});
    post({"N", "--sample", GetParam()});
    EXPECT_EQ(observer->readLine(), "N|-|same");
}

INSTANTIATE_TEST_SUITE_P(UserInfo, SampleUserInfo,
                         ::testing::Values("change", "kinds", "odd", "deep", "deepest", "wide", "large"),
                         [](const auto& sample) { return std::string(sample.param); });

class OrderedUserInfo : public DistributedCenter, public ::testing::WithParamInterface<const char*> {};

TEST_P(OrderedUserInfo, ArrivesWithItsOrderAndTheSignOfZero) {
    const auto observer = observe({"N"});
    post({"N", "--sample", GetParam()});
    EXPECT_EQ(observer->readLine(), "N|-|" + text(sampleUserInfo(GetParam())));
}

INSTANTIATE_TEST_SUITE_P(UserInfo, OrderedUserInfo, ::testing::Values("kinds", "odd", "deep", "wide"),
                         [](const auto& sample) { return std::string(sample.param); });

TEST_F(DistributedCenter, PostsWithoutAUserInfoThatNoBusTransmits) {
    const auto observer = observe({"N"});
    post({"N", "--sample", "too-large"});
    EXPECT_EQ(observer->readLine(), "N|-|-");
}

TEST_F(DistributedCenter, PostsWithoutAUserInfoDeeperThanADocument) {
    const auto observer = observe({"N"});
    for (const char* sample : {"too-deep", "far-too-deep"}) {
        post({"N", "--sample", sample});
        EXPECT_EQ(observer->readLine(), "N|-|-") << sample;
    }
}

} // namespace
} // namespace wardlock::test
