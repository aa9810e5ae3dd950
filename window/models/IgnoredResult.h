#pragma once

#include "shell/input/InputResult.h"

namespace wardlock::window {

/// Input that is refused does nothing. What cannot be done for long is shown as not available. What has just
/// been covered, moved or removed is seen to be so, and where that is not enough a notice gives the reason.
inline void ignoreResult(const shell::InputResult&) {}

} // namespace wardlock::window
