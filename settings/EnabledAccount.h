#pragma once

/// The one account whose restrictions apply: the first enabled record of the cached document. Main thread
/// only. A key that is missing from the record reads as false, 0.0 or null, whatever its default would be.

#include "../platform/base/Export.h"
#include "../platform/values/Value.h"

#include <optional>
#include <string_view>

namespace wardlock {

/// The very record inside the cached document, not a copy; empty when no account is enabled or none has been
/// searched for.
extern WARDLOCK_API std::optional<platform::Dictionary> EnabledAccount;

/// Searches the cached document again; leaves EnabledAccount alone.
WARDLOCK_API std::optional<platform::Dictionary> EnabledAccountNew();
/// Returns EnabledAccount; searches for it while it is empty.
WARDLOCK_API const std::optional<platform::Dictionary>& EnabledAccountFetchIfNecessary();

/// Look-ups in the enabled account; null, false and 0.0 when there is none. They allocate nothing; a result
/// is valid until the next reload.
WARDLOCK_API const platform::Value* AccountObject(std::string_view key);
WARDLOCK_API bool AccountBool(std::string_view key);
WARDLOCK_API float AccountFloat(std::string_view key);
/// Returns the result of AccountObject; a value that is not a string is returned as it is.
WARDLOCK_API const platform::Value* AccountString(std::string_view key);

/// Returns whether an account is enabled.
WARDLOCK_API bool AccountEnabled();
/// Returns whether the extension is switched on and an account is enabled.
WARDLOCK_API bool TweakEnabled();

} // namespace wardlock
