#include "platform/runtime/NSNotificationCenter.h"

#include <algorithm>
#include <utility>

namespace platform {

NSNotificationCenter& NSNotificationCenter::defaultCenter() {
    // Never destroyed: observers with static storage remove themselves while the process ends.
    static auto* center = new NSNotificationCenter;
    return *center;
}

void NSNotificationCenter::addObserver(const std::shared_ptr<Object>& observer, Action action,
                                       std::string_view name, const std::shared_ptr<Object>& object) {
    std::erase_if(registrations_, [](const auto& registration) { return registration->observer.expired(); });
    if (!observer)
        return;
    registrations_.push_back(std::make_shared<Registration>(
        Registration{observer.get(), observer, action, std::string(name), object == nullptr, object}));
}

void NSNotificationCenter::removeObserver(const Object& observer) {
    removeIf([&](const Registration& registration) { return registration.identity == &observer; });
}

void NSNotificationCenter::removeObserver(const Object& observer, std::string_view name,
                                          const std::shared_ptr<Object>& object) {
    removeIf([&](const Registration& registration) {
        return registration.identity == &observer && registration.name == name &&
               (!object || (!registration.anyObject && registration.object.lock() == object));
    });
}

template <class Matches>
void NSNotificationCenter::removeIf(Matches matches) {
    std::erase_if(registrations_, [&](const std::shared_ptr<Registration>& registration) {
        if (!matches(*registration))
            return false;
        // A dispatch in progress still has the registration; without its observer it notifies no one.
        registration->observer.reset();
        return true;
    });
}

void NSNotificationCenter::postNotification(std::string_view name, const std::shared_ptr<Object>& object,
                                            std::optional<Dictionary> userInfo) {
    std::vector<std::shared_ptr<Registration>> snapshot;
    for (const auto& registration : registrations_) {
        const bool wanted = registration->anyObject || (object && registration->object.lock() == object);
        if (wanted && registration->name == name)
            snapshot.push_back(registration);
    }
    if (snapshot.empty())
        return;
    const NSNotification notification{std::string(name), object, std::move(userInfo)};
    for (const auto& registration : snapshot) {
        if (const auto observer = registration->observer.lock())
            registration->action(*observer, notification);
    }
}

std::size_t NSNotificationCenter::observerCount(std::string_view name) const {
    return static_cast<std::size_t>(
        std::count_if(registrations_.begin(), registrations_.end(), [&](const auto& registration) {
            return registration->name == name && !registration->observer.expired();
        }));
}

} // namespace platform
