#pragma once

#include "shell/input/InputResult.h"

namespace wardlock::window {

/// A tap that comes too late, on something that has just been covered or taken away, does nothing: a person
/// sees why.
inline void ignoreResult(const shell::InputResult&) {}

} // namespace wardlock::window
