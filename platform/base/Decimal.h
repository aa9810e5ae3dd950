#pragma once

#include <cstddef>
#include <string_view>

namespace platform {

/// The decimal number at the beginning of a text, independent of the process's locale.
struct Decimal {
    /// Infinite when the number is too large, 0 when it is too small for a double.
    double value = 0;
    /// Bytes of the text that the number takes; 0 when the text begins with another character.
    std::size_t length = 0;
};

/// Reads digits with an optional point and exponent; no sign.
Decimal leadingDecimal(std::string_view text);

} // namespace platform
