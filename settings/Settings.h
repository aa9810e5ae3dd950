#pragma once

/// The settings as a process reads them: the preferences document, loaded once with missing top-level keys
/// filled from the defaults. It is kept until another process announces a change. Main thread only.
///
/// Nothing here reports an error. The defaults replace a missing, unreadable or empty document, a failed
/// write is ignored, and a missing key reads as false, 0.0 or null.

#include "../platform/base/Export.h"
#include "../platform/plist/PropertyListFile.h"
#include "../platform/runtime/CFNotificationCenter.h"
#include "../platform/values/Value.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace wardlock {

/// Receives the changed key (a string) and its new value. Both are valid during the call only, and either may
/// be null.
using ChangeCallback = std::function<void(const platform::Value* key, const platform::Value* object)>;

/// The cached document; empty until the first look-up. Never written back to the document.
extern WARDLOCK_API std::optional<platform::MutableDictionary> TweakSettings;
/// Called after each change; empty when the host supplied none.
extern WARDLOCK_API ChangeCallback UpdateCallback;

/// Loads the document, fills missing top-level keys and writes it back when it had to; in a new device root
/// it creates the folders above it. Leaves the cache alone. Returns what was loaded, and whether it was
/// written.
WARDLOCK_API platform::Update loadDocument();
/// Returns what loadDocument() loads.
WARDLOCK_API platform::Dictionary SettingsNew();
/// Returns the cache, filled by SettingsNew() on first use.
WARDLOCK_API platform::MutableDictionary& SettingsCreateIfNecessary();

/// Look-ups in the cache; they allocate nothing once it is filled. The results point into it and are valid
/// until the next reload.
WARDLOCK_API const platform::Value* objectForKey(std::string_view key);
WARDLOCK_API bool boolForKey(std::string_view key);
WARDLOCK_API float floatForKey(std::string_view key);
/// Returns the result of objectForKey; a value that is not a string is returned as it is.
WARDLOCK_API const platform::Value* stringForKey(std::string_view key);

/// Writes a filled cache to the sibling product's preferences, not to the document.
WARDLOCK_API void writeSettings();

/// Reloads the cache, then the enabled account.
WARDLOCK_API void InitSettings();
/// Observes the change notification of the post name, then loads. Call it once per process, at start; it
/// cannot be undone.
WARDLOCK_API void InitSettingsWithUpdateName(std::string_view post);
/// The same, after storing `callback` in UpdateCallback.
WARDLOCK_API void InitSettingsWithUpdateNameAndCallback(std::string_view post, ChangeCallback callback);

/// Called for each notification: reloads, whatever the notification carries, and passes the change on to
/// UpdateCallback.
WARDLOCK_API void SettingsUpdateCallback(platform::CFNotificationCenter& center, void* observer,
                                         std::string_view name, const std::string* object,
                                         const platform::Dictionary* userInfo);

} // namespace wardlock
