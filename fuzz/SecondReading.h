#pragma once

#include "platform/values/Value.h"

namespace wardlock::fuzz {

/// Writes the value and reads it again: the same value must come back. Ends the process when it does not.
void expectSameValueAgain(const platform::Value& value);

} // namespace wardlock::fuzz
