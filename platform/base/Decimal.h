#pragma once

#include <cstddef>
#include <string_view>

namespace platform {

/// The decimal number a text begins with, whatever the process's locale.
struct Decimal {
    /// Infinite when it is too large, 0 when it is too small for a double.
    double value = 0;
    /// Of the text it takes; 0 when the text begins with no number.
    std::size_t length = 0;
};

/// Digits with an optional point and exponent; no sign.
Decimal leadingDecimal(std::string_view text);

} // namespace platform
