#pragma once

#include "platform/values/Value.h"

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Reads the number of an <integer> element: a sign, decimal or "0x" digits, white space around each. Returns
/// nothing unless it is between the least signed and the largest unsigned 64-bit integer.
std::optional<Value> integerFromText(std::string_view text);
/// Reads the number of a <real> element: decimal, or a word for not-a-number or infinity.
std::optional<Value> realFromText(std::string_view text);

/// Appends the integer's decimal digits.
void appendInteger(std::string& text, const Value& integer);
/// Appends the shortest decimal that reads back to the same bits.
void appendReal(std::string& text, double real);

} // namespace platform
