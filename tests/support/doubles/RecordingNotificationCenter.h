#pragma once

#include "platform/base/Subscribers.h"
#include "platform/runtime/CFNotificationCenterClass.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace wardlock::test {

/// A distributed centre that keeps what is posted and notifies no process. While it lives it is the one that
/// CFNotificationCenterGetDistributedCenter() returns.
class RecordingNotificationCenter : public platform::CFNotificationCenter {
public:
    struct Post {
        std::string name;
        std::optional<std::string> object;
        std::optional<platform::Dictionary> userInfo;
        bool deliverImmediately;
    };
    struct Observer {
        void* observer;
        platform::CFNotificationCallback callback;
        std::string name;
        std::optional<std::string> object;
        platform::CFNotificationSuspensionBehavior suspension;
    };

    RecordingNotificationCenter();
    ~RecordingNotificationCenter() override;

    platform::Subscription addObserver(void* observer, platform::CFNotificationCallback callback,
                                       std::string_view name, const std::string* object,
                                       platform::CFNotificationSuspensionBehavior suspension) override;
    void postNotification(std::string_view name, const std::string* object,
                          const platform::Dictionary* userInfo, bool deliverImmediately) override;

    /// Notifies the observers, as if another process had posted.
    void deliver(std::string_view name, const std::string* object = nullptr,
                 const platform::Dictionary* userInfo = nullptr);

    /// In the order of the calls, ended registrations included.
    std::vector<Post> posts;
    std::vector<Observer> observers;
    /// Called within each post and each registration, when set: for what must have happened before.
    std::function<void(const Post&)> onPost;
    std::function<void(const Observer&)> onAddObserver;

private:
    platform::Subscribers<Observer> registered_;
};

} // namespace wardlock::test
