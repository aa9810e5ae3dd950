#include "tests/support/doubles/RecordingNotificationCenter.h"

#include "platform/runtime/SystemNotificationCenter.h"

namespace wardlock::test {

RecordingNotificationCenter::RecordingNotificationCenter() {
    platform::setDistributedCenter(this);
}

RecordingNotificationCenter::~RecordingNotificationCenter() {
    platform::setDistributedCenter(nullptr);
}

void RecordingNotificationCenter::addObserver(void* observer, platform::CFNotificationCallback callback,
                                              std::string_view name, const std::string* object,
                                              platform::CFNotificationSuspensionBehavior suspension) {
    observers.push_back(
        {observer, callback, std::string(name), object ? std::optional(*object) : std::nullopt, suspension});
    if (onAddObserver)
        onAddObserver(Observer(observers.back()));
}

void RecordingNotificationCenter::postNotification(std::string_view name, const std::string* object,
                                                   const platform::Dictionary* userInfo,
                                                   bool deliverImmediately) {
    posts.push_back({std::string(name), object ? std::optional(*object) : std::nullopt,
                     userInfo ? std::optional(*userInfo) : std::nullopt, deliverImmediately});
    if (onPost)
        onPost(Post(posts.back()));
}

void RecordingNotificationCenter::deliver(std::string_view name, const std::string* object,
                                          const platform::Dictionary* userInfo) {
    const std::vector<Observer> now = observers;
    for (const Observer& each : now) {
        if (each.name == name && (!each.object || (object && *object == *each.object)))
            each.callback(*this, each.observer, name, object, userInfo);
    }
}

} // namespace wardlock::test
