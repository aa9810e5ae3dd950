#include "linux/notifications/DistributedCenter.h"

#include "linux/notifications/DeviceRootIdentity.h"
#include "linux/posix/LoopSources.h"

#include <utility>

namespace platform::notifications {

namespace {

/// The number of notifications that may wait for the main loop. More are dropped, and the observers are
/// notified that they missed some.
constexpr std::size_t mostInInbox = 4096;

const std::string* pointerTo(const std::optional<std::string>& object) {
    return object ? &*object : nullptr;
}

} // namespace

DistributedCenter::DistributedCenter()
    : bus_({[this](Notification notification) { receive(std::move(notification)); },
            [this] { subscribed_ = true; },
            [this] {
                subscribed_ = false;
                missAll();
                // The descriptor's number may be in use again before the loop's next wait.
                posix::LoopSources::shared().refresh();
            }}),
      turns_(posix::LoopSources::shared().add(*this)) {}

Subscription DistributedCenter::addObserver(void* observer, CFNotificationCallback callback,
                                            std::string_view name, const std::string* object,
                                            CFNotificationSuspensionBehavior) {
    if (!callback)
        return {};
    const bool effective = bus_.subscribe();
    auto subscription = registrations_.add(
        {observer, callback, std::string(name), object ? std::optional(*object) : std::nullopt, !effective});
    posix::LoopSources::shared().refresh();
    return subscription;
}

void DistributedCenter::postNotification(std::string_view name, const std::string* object,
                                         const Dictionary* userInfo, bool) {
    const Notification notification{deviceRootIdentity(), std::string(name),
                                    object ? std::optional(*object) : std::nullopt,
                                    userInfo ? std::optional(*userInfo) : std::nullopt};
    // Other processes first: an observer here may throw.
    bus_.post(notification);
    posix::LoopSources::shared().refresh();
    deliver(notification);
}

std::optional<DistributedCenter::Clock::time_point> DistributedCenter::deadline() const {
    const bool undelivered =
        !inbox_.empty() ||
        (subscribed_ && registrations_.any([](const Registration& each) { return each.missedSome; }));
    return undelivered ? std::optional(Clock::time_point()) : bus_.deadline();
}

void DistributedCenter::process() {
    bus_.process();
    deliverMissed();
    const auto identity = inbox_.empty() ? std::string() : deviceRootIdentity();
    for (auto count = inbox_.size(); count > 0 && !inbox_.empty(); --count) {
        const Notification notification = std::move(inbox_.front());
        inbox_.pop_front();
        if (notification.deviceRoot == identity)
            deliver(notification);
    }
}

void DistributedCenter::receive(Notification notification) {
    if (inbox_.size() < mostInInbox)
        inbox_.push_back(std::move(notification));
    else
        missAll();
}

void DistributedCenter::missAll() {
    registrations_.forEach([](Registration& registration) { registration.missedSome = true; });
}

void DistributedCenter::deliver(const Notification& notification) {
    registrations_.forEach([&](const Registration& registration) {
        if (registration.name == notification.name &&
            (!registration.object || registration.object == notification.object))
            registration.callback(*this, registration.observer, notification.name,
                                  pointerTo(notification.object),
                                  notification.userInfo ? &*notification.userInfo : nullptr);
    });
}

void DistributedCenter::deliverMissed() {
    registrations_.forEach([this](Registration& registration) {
        if (subscribed_ && std::exchange(registration.missedSome, false))
            registration.callback(*this, registration.observer, registration.name,
                                  pointerTo(registration.object), nullptr);
    });
}

} // namespace platform::notifications
