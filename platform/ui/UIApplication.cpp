#include "platform/ui/UIApplication.h"

#include "platform/runtime/NSNotificationCenter.h"
#include "platform/ui/URLOpener.h"

#include <utility>

namespace platform {

UIApplication::~UIApplication() = default;

UIApplication& UIApplication::sharedApplication() {
    static const std::shared_ptr<UIApplication> application(new UIApplication);
    return *application;
}

void UIApplication::setKeyWindow(std::shared_ptr<UIWindow> window) {
    keyWindow_ = std::move(window);
}

bool UIApplication::openURL(std::string_view url) {
    return URLOpener::current().openURL(url);
}

void UIApplication::resignActive() {
    NSNotificationCenter::defaultCenter().postNotification(UIApplicationWillResignActiveNotification,
                                                           shared_from_this());
}

} // namespace platform
