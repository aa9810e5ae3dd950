#pragma once

#include "platform/values/Value.h"

#include <string>

namespace wardlock::test {

/// A value in one line, its kinds and the order of its entries visible: `{"key": true, "n": 4u, "when":
/// date 1.5}`. Containers below the hundredth level are "...".
std::string text(const platform::Value& value);

} // namespace wardlock::test
