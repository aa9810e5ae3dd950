#pragma once

#include "../base/Export.h"
#include "../values/Value.h"

#include <string>
#include <string_view>

namespace platform {

/// A notification centre that reaches other processes. Main thread only; callbacks run there, from
/// MainLoop::process(). Observers in the posting process run within the post itself.
class CFNotificationCenter;

/// `object` and `userInfo` are null where the poster gave none. All arguments are valid during the call only.
using CFNotificationCallback = void (*)(CFNotificationCenter& center, void* observer, std::string_view name,
                                        const std::string* object, const Dictionary* userInfo);

enum class CFNotificationSuspensionBehavior { Drop = 1, Coalesce = 2, Hold = 3, DeliverImmediately = 4 };

/// Returns the centre that reaches every process of this device root.
WARDLOCK_API CFNotificationCenter& CFNotificationCenterGetDistributedCenter();

/// Registers a callback until the process ends. The registration is effective when this returns. Without a
/// bus it takes effect when the bus comes back.
WARDLOCK_API void CFNotificationCenterAddObserver(CFNotificationCenter& center, void* observer,
                                                  CFNotificationCallback callback, std::string_view name,
                                                  const std::string* object,
                                                  CFNotificationSuspensionBehavior suspension);
/// Never blocks for long and reports no error: without a bus the observers of this process are still
/// notified.
WARDLOCK_API void CFNotificationCenterPostNotification(CFNotificationCenter& center, std::string_view name,
                                                       const std::string* object, const Dictionary* userInfo,
                                                       bool deliverImmediately);

} // namespace platform
