#pragma once

#include "platform/base/Export.h"
#include "platform/base/Subscription.h"

#include <functional>
#include <string_view>

namespace platform {

/// Receives the reason why a change could not be stored, or may not last: the system's text, without a full
/// stop.
using UnsavedChangeObserver = std::function<void(std::string_view reason)>;

/// Calls `observer` for each change of a document on the device that could not be stored, until the
/// subscription ends. Pages ignore what a writer returns; a host that shows them notifies the user. Main
/// thread only.
WARDLOCK_API Subscription observeUnsavedChanges(UnsavedChangeObserver observer);

/// To be called by writers, after the failure. Main thread only.
WARDLOCK_API void reportUnsavedChange(std::string_view reason);

} // namespace platform
