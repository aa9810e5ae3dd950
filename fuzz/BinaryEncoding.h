#pragma once

#include "platform/values/Value.h"

#include <string>

namespace wardlock::fuzz {

/// A value as a binary property list, by an encoder that shares nothing with what reads it. Its texts have to
/// be valid UTF-8.
std::string binaryPropertyList(const platform::Value& value);

} // namespace wardlock::fuzz
