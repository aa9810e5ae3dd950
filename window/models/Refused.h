#pragma once

#include "shell/input/Answer.h"

namespace wardlock::app {

/// A tap that comes too late, on something that has just been covered or taken away, does nothing: a person
/// sees why.
inline void refusedIsFine(const shell::Answer&) {}

} // namespace wardlock::app
