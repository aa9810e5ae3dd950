#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace platform {

/// The moment from which dates of property lists are counted in seconds.
inline constexpr std::chrono::sys_seconds dateReference =
    std::chrono::sys_days(std::chrono::year(2001) / std::chrono::January / 1);
/// The first and the last second of the calendar's years.
inline constexpr std::chrono::sys_seconds firstCalendarSecond =
    std::chrono::sys_days(std::chrono::year::min() / std::chrono::January / 1);
inline constexpr std::chrono::sys_seconds lastCalendarSecond =
    std::chrono::sys_days(std::chrono::year::max() / std::chrono::December / 31) + std::chrono::days(1) -
    std::chrono::seconds(1);

/// Appends the second in universal time as "YYYY-MM-DD", `between`, "hh:mm:ss" and `zone`. A year before 0
/// has a minus.
void appendCalendarTime(std::string& text, std::chrono::sys_seconds time, char between,
                        std::string_view zone);

} // namespace platform
