#pragma once

#include "platform/base/Export.h"

#include <chrono>
#include <string_view>

namespace platform {

/// Opens the URL with the program that is registered for its scheme, and does not wait for that program.
/// Returns whether such a program could be started; without a registered handler nothing happens.
WARDLOCK_API bool openURLOnSystem(std::string_view url);

/// The same with another `timeout`: how long a failure to open may take to show. A handler that still runs
/// then has the URL.
WARDLOCK_API bool openURLOnSystem(std::string_view url, std::chrono::milliseconds timeout);

} // namespace platform
