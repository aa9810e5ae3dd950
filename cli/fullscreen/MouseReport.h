#pragma once

#include "cli/fullscreen/Key.h"

#include <optional>
#include <string_view>

namespace wardlock::cli {

/// Returns what a terminal's report of the mouse means, without the bytes "CSI" before it: "<0;10;5M", or "M"
/// and three bytes. None for other buttons, and for anything else.
std::optional<Key> mouseKey(std::string_view report);

} // namespace wardlock::cli
