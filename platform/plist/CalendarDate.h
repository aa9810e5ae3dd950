#pragma once

#include "platform/base/Export.h"

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Returns the seconds since 2001-01-01T00:00:00Z of "YYYY-MM-DDThh:mm:ssZ", where a minus may precede the
/// year. Returns nothing for any other text and for a time that the calendar does not have.
std::optional<double> secondsFromDateText(std::string_view text);

/// Appends the whole second in that form. A time beyond the calendar's years is written as its first or last
/// second.
WARDLOCK_API void appendDateText(std::string& text, double secondsSince2001);

} // namespace platform
