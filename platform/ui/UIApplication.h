#pragma once

#include "platform/base/Object.h"
#include "platform/ui/UIWindow.h"

#include <memory>
#include <string>
#include <string_view>

namespace platform {

/// Posted to the default centre when the whole application loses the focus, is minimised or suspended.
inline constexpr const char* UIApplicationWillResignActiveNotification =
    "UIApplicationWillResignActiveNotification";

/// The host application as pages see it. Main thread only.
class WARDLOCK_API UIApplication : public Object {
public:
    static UIApplication& sharedApplication();
    ~UIApplication() override;

    /// Null while the host shows no window.
    const std::shared_ptr<UIWindow>& keyWindow() const { return keyWindow_; }
    void setKeyWindow(std::shared_ptr<UIWindow> window);

    /// Returns whether the URL is being opened. That no program can open it may turn out later.
    bool openURL(std::string_view url);

    /// Posts UIApplicationWillResignActiveNotification.
    void resignActive();

private:
    UIApplication() = default;

    std::shared_ptr<UIWindow> keyWindow_;
};

} // namespace platform
