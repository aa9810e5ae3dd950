#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace wardlock::cli {

/// When the document was last changed; none when there is no document.
using DocumentTime = std::optional<std::chrono::sys_seconds>;
DocumentTime timeOfDocument();

/// Returns "2026-01-31T12:00:00Z".
std::string utcText(std::chrono::sys_seconds time);
/// Returns "2026-01-31 13:00:00", in the time zone of the user.
std::string localText(std::chrono::sys_seconds time);

} // namespace wardlock::cli
