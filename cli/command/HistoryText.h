#pragma once

#include "settings/history/History.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace wardlock::cli {

/// Returns who wrote a version: "Settings", "command", "another program".
std::string_view originText(const platform::VersionOrigin& origin);

/// Returns the word for an action in JSON: "change", "undo", "redo", "restore".
std::string_view actionWord(platform::VersionAction action);

/// Returns a time in milliseconds since 1970 as "2026-11-22 05:01:25", in this machine's time zone.
std::string localTime(std::int64_t milliseconds);
/// Returns it as "2026-11-22T05:01:25.123Z".
std::string universalTime(std::int64_t milliseconds);

} // namespace wardlock::cli
