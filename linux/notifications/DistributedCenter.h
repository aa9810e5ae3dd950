#pragma once

#include "linux/notifications/Notification.h"
#include "linux/notifications/NotificationBus.h"
#include "linux/posix/LoopSource.h"
#include "platform/base/Subscribers.h"
#include "platform/runtime/CFNotificationCenterClass.h"

#include <deque>
#include <optional>
#include <string>

namespace platform::notifications {

/// The distributed centre over D-Bus. Observers in the posting process are notified within the post; those in
/// other processes of the same device root from their main loop. An observer that may have missed
/// notifications, because the bus was away, gets one without user info, so that it reloads.
class DistributedCenter : public CFNotificationCenter, public posix::LoopSource {
public:
    DistributedCenter();

    Subscription addObserver(void* observer, CFNotificationCallback callback, std::string_view name,
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
        /// Whether the observer may have missed notifications.
        bool missedSome;
    };

    void receive(Notification notification);
    void missAll();
    void deliver(const Notification& notification);
    void deliverMissed();

    Subscribers<Registration> registrations_;
    /// Notifications that arrived and are not delivered yet. Observers run outside the bus's own work, so
    /// that they may use the bus.
    std::deque<Notification> inbox_;
    /// Whether notifications arrive, so that observers who missed some can be notified.
    bool subscribed_ = false;
    NotificationBus bus_;
    Subscription turns_;
};

} // namespace platform::notifications
