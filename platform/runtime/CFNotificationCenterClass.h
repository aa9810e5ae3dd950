#pragma once

#include "platform/base/Export.h"
#include "platform/base/Subscription.h"
#include "platform/runtime/CFNotificationCenter.h"

#include <string>
#include <string_view>

namespace platform {

/// The class behind the functions of CFNotificationCenter.h, which document what it does. Other programs use
/// those functions alone.
class WARDLOCK_API CFNotificationCenter {
public:
    virtual ~CFNotificationCenter();

    /// Returns the process's distributed centre: the one that was set, else the operating system's own.
    static CFNotificationCenter& current();
    /// Null restores the operating system's own. The caller keeps ownership.
    static void setCurrent(CFNotificationCenter* center);
    /// Returns the operating system's own.
    static CFNotificationCenter& native();

    virtual Subscription addObserver(void* observer, CFNotificationCallback callback, std::string_view name,
                                     const std::string* object,
                                     CFNotificationSuspensionBehavior suspension) = 0;
    virtual void postNotification(std::string_view name, const std::string* object,
                                  const Dictionary* userInfo, bool deliverImmediately) = 0;
};

} // namespace platform
