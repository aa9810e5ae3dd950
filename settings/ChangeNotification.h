#pragma once

/// The one message that the pages send to other processes: a key of the preferences document or of an account
/// record has a new value. Its name is "identifier/post" on the distributed centre, without an object. The
/// user info is exactly "key" and "object"; delivery is immediate. Main thread only.

#include "../platform/base/Export.h"
#include "../platform/base/Subscription.h"
#include "../platform/runtime/CFNotificationCenter.h"
#include "../platform/values/Value.h"

#include <string>
#include <string_view>

namespace wardlock {

/// Entries of the user info: the key that was changed and its new value.
inline constexpr std::string_view ChangeKey = "key";
inline constexpr std::string_view ChangeObject = "object";

WARDLOCK_API std::string changeNotificationName(std::string_view identifier, std::string_view post);

/// Announces a change that has been written.
WARDLOCK_API void postChange(std::string_view identifier, std::string_view post, std::string_view key,
                             const platform::Value& object);

/// Registers `callback` for the changes of all processes, this one included, until the subscription ends.
/// `observer` is passed to it.
WARDLOCK_API platform::Subscription observeChanges(std::string_view identifier, std::string_view post,
                                                   void* observer, platform::CFNotificationCallback callback);

} // namespace wardlock
