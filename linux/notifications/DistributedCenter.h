#pragma once

#include "linux/notifications/Notification.h"
#include "linux/notifications/NotificationBus.h"
#include "platform/runtime/CFNotificationCenter.h"

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace platform::notifications {

/// The distributed centre over D-Bus. The observers of the posting process are told within the post; those of
/// other processes of the same device root from their main loop. An observer that may have missed
/// notifications, because the bus was away, is told once without user info, so that it looks for itself.
class DistributedCenter : public CFNotificationCenter, public posix::LoopSource {
public:
    DistributedCenter();

    void addObserver(void* observer, CFNotificationCallback callback, std::string_view name,
                     const std::string* object, CFNotificationSuspensionBehavior suspension) override;
    void postNotification(std::string_view name, const std::string* object, const Dictionary* userInfo,
                          bool deliverImmediately) override;

    int descriptor() const override { return bus_.descriptor(); }
    short events() const override { return bus_.events(); }
    std::optional<Clock::time_point> deadline() const override;
    void process() override;

private:
    struct Registration {
        void* observer;
        CFNotificationCallback callback;
        std::string name;
        std::optional<std::string> object;
        /// Notifications may have passed that the observer was not told of.
        bool missedSome;
    };

    void receive(Notification notification);
    void missAll();
    void deliver(const Notification& notification);
    void deliverMissed();

    std::vector<Registration> registrations_;
    /// What came in and is not delivered yet: observers run outside the bus's own work, so that they may use
    /// it.
    std::deque<Notification> inbox_;
    /// Whether notifications come in, so that observers who missed some can be told.
    bool subscribed_ = false;
    NotificationBus bus_;
};

} // namespace platform::notifications
