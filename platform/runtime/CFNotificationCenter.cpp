#include "platform/runtime/CFNotificationCenter.h"

#include "platform/runtime/SystemNotificationCenter.h"

namespace platform {

namespace {

CFNotificationCenter* replacement = nullptr;

} // namespace

CFNotificationCenter::~CFNotificationCenter() = default;

CFNotificationCenter& CFNotificationCenterGetDistributedCenter() {
    return replacement ? *replacement : systemNotificationCenter();
}

void setDistributedCenter(CFNotificationCenter* center) {
    replacement = center;
}

void CFNotificationCenterAddObserver(CFNotificationCenter& center, void* observer,
                                     CFNotificationCallback callback, std::string_view name,
                                     const std::string* object, CFNotificationSuspensionBehavior suspension) {
    center.addObserver(observer, callback, name, object, suspension);
}

void CFNotificationCenterPostNotification(CFNotificationCenter& center, std::string_view name,
                                          const std::string* object, const Dictionary* userInfo,
                                          bool deliverImmediately) {
    center.postNotification(name, object, userInfo, deliverImmediately);
}

} // namespace platform
