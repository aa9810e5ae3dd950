#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace platform {

/// Appends the second in universal time as "YYYY-MM-DD", `between`, "hh:mm:ss" and `zone`. A year before 0
/// has a minus.
void appendCalendarTime(std::string& text, std::chrono::sys_seconds time, char between,
                        std::string_view zone);

} // namespace platform
