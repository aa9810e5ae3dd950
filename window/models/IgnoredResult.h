#pragma once

#include "shell/input/InputResult.h"

namespace wardlock::window {

/// Input that comes too late, on something that has just been covered or removed, does nothing: the user sees
/// the reason.
inline void ignoreResult(const shell::InputResult&) {}

} // namespace wardlock::window
