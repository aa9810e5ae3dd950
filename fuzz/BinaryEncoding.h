#pragma once

#include "platform/values/Value.h"

#include <string>

namespace wardlock::fuzz {

/// Encodes a value as a binary property list. The encoder shares no code with the reader. Texts must be valid
/// UTF-8.
std::string binaryPropertyList(const platform::Value& value);

} // namespace wardlock::fuzz
