#pragma once

#include <chrono>
#include <string>

namespace wardlock::cli {

/// A time in milliseconds since 1970.
using Time = std::chrono::sys_time<std::chrono::milliseconds>;

/// Returns "2026-01-31 13:00:00", in the user's time zone.
std::string localTime(Time time);

/// Returns "2026-01-31T12:00:00Z".
std::string universalTime(Time time);
/// Returns "2026-01-31T12:00:00.123Z".
std::string universalTimeWithMilliseconds(Time time);

} // namespace wardlock::cli
