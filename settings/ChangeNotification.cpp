#include "settings/ChangeNotification.h"

#include "platform/runtime/CFNotificationCenterClass.h"
#include "platform/text/Format.h"
#include "settings/Constants.h"

namespace wardlock {

std::string changeNotificationName(std::string_view identifier, std::string_view post) {
    return platform::stringWithFormat(ChangeNotificationNameFormat, identifier, post);
}

void postChange(std::string_view identifier, std::string_view post, std::string_view key,
                const platform::Value& object) {
    const platform::Dictionary userInfo{{ChangeKey, key}, {ChangeObject, object}};
    platform::CFNotificationCenterPostNotification(platform::CFNotificationCenterGetDistributedCenter(),
                                                   changeNotificationName(identifier, post), nullptr,
                                                   &userInfo, true);
}

platform::Subscription observeChanges(std::string_view identifier, std::string_view post, void* observer,
                                      platform::CFNotificationCallback callback) {
    return platform::CFNotificationCenter::current().addObserver(
        observer, callback, changeNotificationName(identifier, post), nullptr,
        platform::CFNotificationSuspensionBehavior::DeliverImmediately);
}

} // namespace wardlock
