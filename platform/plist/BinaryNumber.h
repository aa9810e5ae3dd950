#pragma once

#include "platform/values/Value.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace platform {

/// Returns the unsigned number of these bytes, the most significant first. Returns the largest 64-bit number
/// for one that does not fit: it is neither a valid position nor a valid count.
inline std::uint64_t bigEndian(std::string_view bytes) {
    for (; bytes.size() > sizeof(std::uint64_t); bytes.remove_prefix(1))
        if (bytes.front() != 0)
            return std::numeric_limits<std::uint64_t>::max();
    std::uint64_t number = 0;
    for (const char byte : bytes)
        number = number << 8 | static_cast<unsigned char>(byte);
    return number;
}

/// Each function reads the number of an object of the binary form. Returns nothing for a length that its kind
/// does not have.

/// Shorter integers are unsigned, those of eight bytes signed; sixteen bytes are for numbers above the
/// largest signed one.
std::optional<Value> integerFromBytes(std::string_view bytes);
std::optional<Value> realFromBytes(std::string_view bytes);
std::optional<Value> dateFromBytes(std::string_view bytes);

} // namespace platform
