#include "platform/plist/BinaryNumber.h"

#include <bit>

namespace platform {

std::optional<Value> integerFromBytes(std::string_view bytes) {
    constexpr std::size_t half = 8;
    if (bytes.size() < half)
        return Value(bigEndian(bytes));
    if (bytes.size() == half)
        return Value(static_cast<std::int64_t>(bigEndian(bytes)));
    if (bytes.size() != 2 * half)
        return std::nullopt;
    const std::uint64_t high = bigEndian(bytes.substr(0, half));
    const std::uint64_t low = bigEndian(bytes.substr(half));
    if (high == 0)
        return Value(low);
    const bool negative = low >> 63 != 0;
    if (high != ~std::uint64_t(0) || !negative)
        return std::nullopt;
    return Value(static_cast<std::int64_t>(low));
}

std::optional<Value> realFromBytes(std::string_view bytes) {
    if (bytes.size() == sizeof(double))
        return Value(std::bit_cast<double>(bigEndian(bytes)));
    if (bytes.size() == sizeof(float))
        return Value(std::bit_cast<float>(static_cast<std::uint32_t>(bigEndian(bytes))));
    return std::nullopt;
}

std::optional<Value> dateFromBytes(std::string_view bytes) {
    if (bytes.size() != sizeof(double))
        return std::nullopt;
    return Value::date(std::bit_cast<double>(bigEndian(bytes)));
}

} // namespace platform
