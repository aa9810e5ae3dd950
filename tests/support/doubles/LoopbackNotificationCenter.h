#pragma once

#include "platform/base/Subscribers.h"
#include "platform/runtime/CFNotificationCenterClass.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::test {

/// A distributed centre without other processes: posts reach this process's observers within the post and are
/// written down; another process's post can be played. While it lives it is the process's centre.
class LoopbackNotificationCenter final : public platform::CFNotificationCenter {
public:
    struct Post {
        std::string name;
        platform::Dictionary userInfo;
    };

    LoopbackNotificationCenter() { setCurrent(this); }
    ~LoopbackNotificationCenter() override { setCurrent(nullptr); }

    platform::Subscription addObserver(void* observer, platform::CFNotificationCallback callback,
                                       std::string_view name, const std::string*,
                                       platform::CFNotificationSuspensionBehavior) override {
        return observers_.add({observer, callback, std::string(name)});
    }
    void postNotification(std::string_view name, const std::string*, const platform::Dictionary* userInfo,
                          bool) override {
        posts.push_back({std::string(name), userInfo ? *userInfo : platform::Dictionary()});
        if (onPost)
            onPost();
        deliver(name, userInfo);
    }
    /// As another process's post arrives.
    void deliver(std::string_view name, const platform::Dictionary* userInfo) {
        observers_.forEach([&](const Observer& each) {
            if (each.name == name)
                each.callback(*this, each.observer, name, nullptr, userInfo);
        });
    }
    /// The number of registrations that have not ended.
    std::size_t observerCount() const { return observers_.size(); }

    std::vector<Post> posts;
    /// Called within each post, when set: for what must have happened before.
    std::function<void()> onPost;

private:
    struct Observer {
        void* observer;
        platform::CFNotificationCallback callback;
        std::string name;
    };
    platform::Subscribers<Observer> observers_;
};

} // namespace wardlock::test
