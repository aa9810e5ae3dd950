#include "tests/support/doubles/RecordingNotificationCenter.h"

namespace wardlock::test {

RecordingNotificationCenter::RecordingNotificationCenter() {
    setCurrent(this);
}

RecordingNotificationCenter::~RecordingNotificationCenter() {
    setCurrent(nullptr);
}

platform::Subscription
RecordingNotificationCenter::addObserver(void* observer, platform::CFNotificationCallback callback,
                                         std::string_view name, const std::string* object,
                                         platform::CFNotificationSuspensionBehavior suspension) {
    observers.push_back(
        {observer, callback, std::string(name), object ? std::optional(*object) : std::nullopt, suspension});
    auto subscription = registered_.add(observers.back());
    if (onAddObserver)
        onAddObserver(Observer(observers.back()));
    return subscription;
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
    registered_.forEach([&](const Observer& each) {
        if (each.name == name && (!each.object || (object && *object == *each.object)))
            each.callback(*this, each.observer, name, object, userInfo);
    });
}

} // namespace wardlock::test
