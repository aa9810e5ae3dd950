#include "platform/runtime/CFNotificationCenter.h"

#include "platform/base/CurrentService.h"
#include "platform/runtime/CFNotificationCenterClass.h"

namespace platform {

namespace {

constinit CurrentService<CFNotificationCenter> currentCenter(CFNotificationCenter::native);

} // namespace

CFNotificationCenter::~CFNotificationCenter() = default;

CFNotificationCenter& CFNotificationCenter::current() {
    return currentCenter.get();
}

void CFNotificationCenter::setCurrent(CFNotificationCenter* center) {
    currentCenter.set(center);
}

CFNotificationCenter& CFNotificationCenterGetDistributedCenter() {
    return CFNotificationCenter::current();
}

void CFNotificationCenterAddObserver(CFNotificationCenter& center, void* observer,
                                     CFNotificationCallback callback, std::string_view name,
                                     const std::string* object, CFNotificationSuspensionBehavior suspension) {
    center.addObserver(observer, callback, name, object, suspension).release();
}

void CFNotificationCenterPostNotification(CFNotificationCenter& center, std::string_view name,
                                          const std::string* object, const Dictionary* userInfo,
                                          bool deliverImmediately) {
    center.postNotification(name, object, userInfo, deliverImmediately);
}

} // namespace platform
