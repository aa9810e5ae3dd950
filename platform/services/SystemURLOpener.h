#pragma once

#include "platform/base/Export.h"

#include <chrono>
#include <string_view>

namespace platform {

/// Opens the URL with the program that this machine has registered for its scheme, and does not wait for that
/// program. Whether there was one that could be started; without a registered handler nothing happens.
WARDLOCK_API bool openURLOnSystem(std::string_view url);

/// The same with another patience: how long a failure to open may take to show. A handler that still runs
/// then has the URL.
WARDLOCK_API bool openURLOnSystem(std::string_view url, std::chrono::milliseconds patience);

} // namespace platform
