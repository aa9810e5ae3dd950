#pragma once

#include "platform/base/Export.h"

#include <chrono>

namespace platform {

/// Returns the time since some start, which never goes back. Unlike a steady clock it also counts while the
/// machine is asleep.
WARDLOCK_API std::chrono::nanoseconds elapsedTime();

} // namespace platform
