#include "platform/runtime/NSNotificationCenter.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

using platform::NSNotification;
using platform::NSNotificationCenter;

namespace {

class Listener : public platform::Object {
public:
    Listener(std::vector<std::string>& told, std::string id) : told_(told), id_(std::move(id)) {}
    ~Listener() override { NSNotificationCenter::defaultCenter().removeObserver(*this); }

    void hear(const NSNotification& notification) {
        told_.push_back(id_ + ":" + notification.name);
        if (onHear)
            onHear(notification);
    }
    void hearWithoutSender() { told_.push_back(id_); }

    std::function<void(const NSNotification&)> onHear;

private:
    std::vector<std::string>& told_;
    std::string id_;
};

const auto hear = NSNotificationCenter::Action::of<&Listener::hear>("hear:");

class NotificationCenter : public ::testing::Test {
protected:
    std::shared_ptr<Listener> listener(const std::string& id) { return std::make_shared<Listener>(told, id); }

    NSNotificationCenter& center = NSNotificationCenter::defaultCenter();
    std::vector<std::string> told;
};

TEST_F(NotificationCenter, NotifiesObserversInTheOrderOfTheirRegistration) {
    const auto first = listener("first");
    const auto second = listener("second");
    center.addObserver(second, hear, "N");
    center.addObserver(first, hear, "N");
    center.postNotification("N");
    EXPECT_EQ(told, (std::vector<std::string>{"second:N", "first:N"}));
}

TEST_F(NotificationCenter, NotifiesOnlyTheObserversOfTheName) {
    const auto observer = listener("a");
    center.addObserver(observer, hear, "N");
    center.postNotification("M");
    EXPECT_TRUE(told.empty());
}

TEST_F(NotificationCenter, NotifiesAnObserverOnceForEachOfItsRegistrations) {
    const auto observer = listener("a");
    center.addObserver(observer, hear, "N");
    center.addObserver(observer, hear, "N");
    center.postNotification("N");
    EXPECT_EQ(told.size(), 2u);
}

TEST_F(NotificationCenter, PassesObjectAndUserInfo) {
    const auto observer = listener("a");
    const std::shared_ptr<platform::Object> object = listener("object");
    bool asPosted = false;
    observer->onHear = [&](const NSNotification& notification) {
        asPosted = notification.object == object && notification.userInfo &&
                   notification.userInfo->find("key") && notification.userInfo->find("key")->integer() == 4;
    };
    center.addObserver(observer, hear, "N");
    center.postNotification("N", object, platform::Dictionary{{"key", 4}});
    EXPECT_TRUE(asPosted);
}

TEST_F(NotificationCenter, PassesNilWhenNoObjectAndNoUserInfoArePosted) {
    const auto observer = listener("a");
    bool nothing = false;
    observer->onHear = [&](const NSNotification& notification) {
        nothing = !notification.object && !notification.userInfo;
    };
    center.addObserver(observer, hear, "N");
    center.postNotification("N");
    EXPECT_TRUE(nothing);
}

TEST_F(NotificationCenter, NotifiesAnObserverOfOneObjectOfItsPostsAlone) {
    const auto observer = listener("a");
    const auto object = listener("object");
    const auto other = listener("other");
    center.addObserver(observer, hear, "N", object);
    center.postNotification("N", other);
    center.postNotification("N");
    EXPECT_TRUE(told.empty());
    center.postNotification("N", object);
    EXPECT_EQ(told.size(), 1u);
}

TEST_F(NotificationCenter, DoesNotMistakeAnotherObjectForOneThatIsGone) {
    const auto observer = listener("a");
    auto object = listener("object");
    center.addObserver(observer, hear, "N", object);
    object.reset();
    center.postNotification("N", listener("other"));
    center.postNotification("N");
    EXPECT_TRUE(told.empty());
}

TEST_F(NotificationCenter, DropsAnObserverThatIsGone) {
    // Without the removal in its destructor.
    class Careless : public platform::Object {
    public:
        explicit Careless(int& count) : count_(count) {}
        void hear() { ++count_; }

    private:
        int& count_;
    };
    int count = 0;
    auto observer = std::make_shared<Careless>(count);
    center.addObserver(observer, NSNotificationCenter::Action::of<&Careless::hear>("hear"), "N");
    EXPECT_EQ(center.observerCount("N"), 1u);
    observer.reset();
    EXPECT_EQ(center.observerCount("N"), 0u);
    center.postNotification("N");
    EXPECT_EQ(count, 0);
}

TEST_F(NotificationCenter, LetsADestructorRemoveTheObserver) {
    auto observer = listener("a");
    center.addObserver(observer, hear, "N");
    center.addObserver(observer, hear, "M");
    observer.reset();
    EXPECT_EQ(center.observerCount("N"), 0u);
    EXPECT_EQ(center.observerCount("M"), 0u);
}

TEST_F(NotificationCenter, RemovesTheRegistrationsOfOneName) {
    const auto observer = listener("a");
    center.addObserver(observer, hear, "N");
    center.addObserver(observer, hear, "M");
    center.removeObserver(*observer, "N");
    center.postNotification("N");
    center.postNotification("M");
    EXPECT_EQ(told, std::vector<std::string>{"a:M"});
}

TEST_F(NotificationCenter, RemovesTheRegistrationsOfOneNameAndObject) {
    const auto observer = listener("a");
    const auto object = listener("object");
    center.addObserver(observer, hear, "N", object);
    center.addObserver(observer, hear, "N");
    center.removeObserver(*observer, "N", object);
    center.postNotification("N", object);
    EXPECT_EQ(told.size(), 1u);
}

TEST_F(NotificationCenter, DoesNotNotifyAnObserverAddedWhileDispatching) {
    const auto observer = listener("a");
    const auto late = listener("late");
    observer->onHear = [&](const NSNotification&) { center.addObserver(late, hear, "N"); };
    center.addObserver(observer, hear, "N");
    center.postNotification("N");
    EXPECT_EQ(told, std::vector<std::string>{"a:N"});
}

TEST_F(NotificationCenter, DoesNotNotifyAnObserverRemovedWhileDispatching) {
    const auto observer = listener("a");
    const auto removed = listener("removed");
    observer->onHear = [&](const NSNotification&) { center.removeObserver(*removed); };
    center.addObserver(observer, hear, "N");
    center.addObserver(removed, hear, "N");
    center.postNotification("N");
    EXPECT_EQ(told, std::vector<std::string>{"a:N"});
}

TEST_F(NotificationCenter, DoesNotNotifyAnObserverThatEndsWhileDispatching) {
    const auto observer = listener("a");
    auto ending = listener("ending");
    observer->onHear = [&](const NSNotification&) { ending.reset(); };
    center.addObserver(observer, hear, "N");
    center.addObserver(ending, hear, "N");
    center.postNotification("N");
    EXPECT_EQ(told, std::vector<std::string>{"a:N"});
}

TEST_F(NotificationCenter, KeepsAnObserverAliveWhileItIsNotified) {
    auto observer = listener("a");
    Listener* plain = observer.get();
    plain->onHear = [&](const NSNotification&) {
        observer.reset();
        told.push_back("still here");
    };
    center.addObserver(observer, hear, "N");
    center.postNotification("N");
    EXPECT_EQ(told, (std::vector<std::string>{"a:N", "still here"}));
}

TEST_F(NotificationCenter, PostsWithinAPost) {
    const auto observer = listener("a");
    const auto second = listener("b");
    observer->onHear = [&](const NSNotification& notification) {
        if (notification.name == "N")
            center.postNotification("M");
    };
    center.addObserver(observer, hear, "N");
    center.addObserver(second, hear, "M");
    center.addObserver(second, hear, "N");
    center.postNotification("N");
    EXPECT_EQ(told, (std::vector<std::string>{"a:N", "b:M", "b:N"}));
}

TEST_F(NotificationCenter, CallsAMethodWithoutParameters) {
    const auto observer = listener("a");
    center.addObserver(observer, NSNotificationCenter::Action::of<&Listener::hearWithoutSender>("hear"), "N");
    center.postNotification("N");
    EXPECT_EQ(told, std::vector<std::string>{"a"});
}

TEST_F(NotificationCenter, IgnoresAnObserverThatIsNil) {
    center.addObserver(nullptr, hear, "N");
    EXPECT_EQ(center.observerCount("N"), 0u);
}

} // namespace
