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
    Listener(std::vector<std::string>& reported, std::string id) : reported_(reported), id_(std::move(id)) {}
    ~Listener() override { NSNotificationCenter::defaultCenter().removeObserver(*this); }

    void receive(const NSNotification& notification) {
        reported_.push_back(id_ + ":" + notification.name);
        if (onReceive)
            onReceive(notification);
    }
    void receiveWithoutSender() { reported_.push_back(id_); }

    std::function<void(const NSNotification&)> onReceive;

private:
    std::vector<std::string>& reported_;
    std::string id_;
};

const auto receive = NSNotificationCenter::Action::of<&Listener::receive>("receive:");

class NotificationCenter : public ::testing::Test {
protected:
    std::shared_ptr<Listener> listener(const std::string& id) {
        return std::make_shared<Listener>(reported, id);
    }

    NSNotificationCenter& center = NSNotificationCenter::defaultCenter();
    std::vector<std::string> reported;
};

TEST_F(NotificationCenter, NotifiesObserversInTheOrderOfTheirRegistration) {
    const auto first = listener("first");
    const auto second = listener("second");
    center.addObserver(second, receive, "N");
    center.addObserver(first, receive, "N");
    center.postNotification("N");
    EXPECT_EQ(reported, (std::vector<std::string>{"second:N", "first:N"}));
}

TEST_F(NotificationCenter, NotifiesOnlyTheObserversOfTheName) {
    const auto observer = listener("a");
    center.addObserver(observer, receive, "N");
    center.postNotification("M");
    EXPECT_TRUE(reported.empty());
}

TEST_F(NotificationCenter, NotifiesAnObserverOnceForEachOfItsRegistrations) {
    const auto observer = listener("a");
    center.addObserver(observer, receive, "N");
    center.addObserver(observer, receive, "N");
    center.postNotification("N");
    EXPECT_EQ(reported.size(), 2u);
}

TEST_F(NotificationCenter, PassesObjectAndUserInfo) {
    const auto observer = listener("a");
    const std::shared_ptr<platform::Object> object = listener("object");
    bool asPosted = false;
    observer->onReceive = [&](const NSNotification& notification) {
        asPosted = notification.object == object && notification.userInfo &&
                   notification.userInfo->find("key") && notification.userInfo->find("key")->integer() == 4;
    };
    center.addObserver(observer, receive, "N");
    center.postNotification("N", object, platform::Dictionary{{"key", 4}});
    EXPECT_TRUE(asPosted);
}

TEST_F(NotificationCenter, PassesNilWhenNoObjectAndNoUserInfoArePosted) {
    const auto observer = listener("a");
    bool nothing = false;
    observer->onReceive = [&](const NSNotification& notification) {
        nothing = !notification.object && !notification.userInfo;
    };
    center.addObserver(observer, receive, "N");
    center.postNotification("N");
    EXPECT_TRUE(nothing);
}

TEST_F(NotificationCenter, NotifiesAnObserverOfOneObjectOfItsPostsAlone) {
    const auto observer = listener("a");
    const auto object = listener("object");
    const auto other = listener("other");
    center.addObserver(observer, receive, "N", object);
    center.postNotification("N", other);
    center.postNotification("N");
    EXPECT_TRUE(reported.empty());
    center.postNotification("N", object);
    EXPECT_EQ(reported.size(), 1u);
}

TEST_F(NotificationCenter, DoesNotMistakeAnotherObjectForOneThatIsGone) {
    const auto observer = listener("a");
    auto object = listener("object");
    center.addObserver(observer, receive, "N", object);
    object.reset();
    center.postNotification("N", listener("other"));
    center.postNotification("N");
    EXPECT_TRUE(reported.empty());
}

TEST_F(NotificationCenter, DropsAnObserverThatIsGone) {
    // Without the removal in its destructor.
    class Careless : public platform::Object {
    public:
        explicit Careless(int& count) : count_(count) {}
        void receive() { ++count_; }

    private:
        int& count_;
    };
    int count = 0;
    auto observer = std::make_shared<Careless>(count);
    center.addObserver(observer, NSNotificationCenter::Action::of<&Careless::receive>("receive"), "N");
    EXPECT_EQ(center.observerCount("N"), 1u);
    observer.reset();
    EXPECT_EQ(center.observerCount("N"), 0u);
    center.postNotification("N");
    EXPECT_EQ(count, 0);
}

TEST_F(NotificationCenter, LetsADestructorRemoveTheObserver) {
    auto observer = listener("a");
    center.addObserver(observer, receive, "N");
    center.addObserver(observer, receive, "M");
    observer.reset();
    EXPECT_EQ(center.observerCount("N"), 0u);
    EXPECT_EQ(center.observerCount("M"), 0u);
}

TEST_F(NotificationCenter, RemovesTheRegistrationsOfOneName) {
    const auto observer = listener("a");
    center.addObserver(observer, receive, "N");
    center.addObserver(observer, receive, "M");
    center.removeObserver(*observer, "N");
    center.postNotification("N");
    center.postNotification("M");
    EXPECT_EQ(reported, std::vector<std::string>{"a:M"});
}

TEST_F(NotificationCenter, RemovesTheRegistrationsOfOneNameAndObject) {
    const auto observer = listener("a");
    const auto object = listener("object");
    center.addObserver(observer, receive, "N", object);
    center.addObserver(observer, receive, "N");
    center.removeObserver(*observer, "N", object);
    center.postNotification("N", object);
    EXPECT_EQ(reported.size(), 1u);
}

TEST_F(NotificationCenter, DoesNotNotifyAnObserverAddedWhileDispatching) {
    const auto observer = listener("a");
    const auto late = listener("late");
    observer->onReceive = [&](const NSNotification&) { center.addObserver(late, receive, "N"); };
    center.addObserver(observer, receive, "N");
    center.postNotification("N");
    EXPECT_EQ(reported, std::vector<std::string>{"a:N"});
}

TEST_F(NotificationCenter, DoesNotNotifyAnObserverRemovedWhileDispatching) {
    const auto observer = listener("a");
    const auto removed = listener("removed");
    observer->onReceive = [&](const NSNotification&) { center.removeObserver(*removed); };
    center.addObserver(observer, receive, "N");
    center.addObserver(removed, receive, "N");
    center.postNotification("N");
    EXPECT_EQ(reported, std::vector<std::string>{"a:N"});
}

TEST_F(NotificationCenter, DoesNotNotifyAnObserverThatEndsWhileDispatching) {
    const auto observer = listener("a");
    auto ending = listener("ending");
    observer->onReceive = [&](const NSNotification&) { ending.reset(); };
    center.addObserver(observer, receive, "N");
    center.addObserver(ending, receive, "N");
    center.postNotification("N");
    EXPECT_EQ(reported, std::vector<std::string>{"a:N"});
}

TEST_F(NotificationCenter, KeepsAnObserverAliveWhileItIsNotified) {
    auto observer = listener("a");
    Listener* plain = observer.get();
    plain->onReceive = [&](const NSNotification&) {
        observer.reset();
        reported.push_back("still here");
    };
    center.addObserver(observer, receive, "N");
    center.postNotification("N");
    EXPECT_EQ(reported, (std::vector<std::string>{"a:N", "still here"}));
}

TEST_F(NotificationCenter, PostsWithinAPost) {
    const auto observer = listener("a");
    const auto second = listener("b");
    observer->onReceive = [&](const NSNotification& notification) {
        if (notification.name == "N")
            center.postNotification("M");
    };
    center.addObserver(observer, receive, "N");
    center.addObserver(second, receive, "M");
    center.addObserver(second, receive, "N");
    center.postNotification("N");
    EXPECT_EQ(reported, (std::vector<std::string>{"a:N", "b:M", "b:N"}));
}

TEST_F(NotificationCenter, CallsAMethodWithoutParameters) {
    const auto observer = listener("a");
    center.addObserver(observer, NSNotificationCenter::Action::of<&Listener::receiveWithoutSender>("receive"),
                       "N");
    center.postNotification("N");
    EXPECT_EQ(reported, std::vector<std::string>{"a"});
}

TEST_F(NotificationCenter, IgnoresAnObserverThatIsNil) {
    center.addObserver(nullptr, receive, "N");
    EXPECT_EQ(center.observerCount("N"), 0u);
}

} // namespace
