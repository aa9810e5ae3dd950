#pragma once

#include "platform/values/Value.h"

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// The number of an <integer> element: a sign, decimal or "0x" digits, white space around each; from the
/// least signed 64-bit integer to the largest unsigned one.
std::optional<Value> integerFromText(std::string_view text);
/// The number of a <real> element: decimal, or a word for what is no number or infinite.
std::optional<Value> realFromText(std::string_view text);

/// Appends the integer's decimal digits.
void appendInteger(std::string& text, const Value& integer);
/// Appends the shortest decimal that reads back to the same bits.
void appendReal(std::string& text, double real);

} // namespace platform
