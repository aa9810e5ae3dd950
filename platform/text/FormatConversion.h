#pragma once

#include "platform/text/Format.h"

#include <cstddef>
#include <optional>
#include <string>

namespace platform {

/// Upper bounds of a width and a precision, so that a format cannot ask for any amount of memory.
inline constexpr std::size_t maximumWidth = 4096;
inline constexpr std::size_t maximumPrecision = 512;

/// One conversion of a format, "%-08.3f" or "%2$@".
struct Conversion {
    std::size_t position = 0; // counted from 1; 0: the next argument
    bool left = false;
    bool zero = false;
    bool alternate = false;
    char sign = 0; // what precedes a number that is not negative
    std::size_t width = 0;
    std::optional<std::size_t> precision;
    char letter = 0;
};

/// Returns the argument as the conversion shows it; "(null)" for none.
std::string converted(const Conversion& conversion, const FormatArgument* argument);

} // namespace platform
