#include "platform/base/Base64.h"

#include <array>
#include <cstdint>

namespace platform {

namespace {

constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr std::int8_t noDigit = -1;
constexpr std::int8_t padding = -2;

constexpr std::array<std::int8_t, 256> meanings() {
    std::array<std::int8_t, 256> table{};
    table.fill(noDigit);
    for (std::size_t i = 0; i < digits.size(); ++i)
        table[static_cast<unsigned char>(digits[i])] = static_cast<std::int8_t>(i);
    table['='] = padding;
    return table;
}

} // namespace

std::optional<std::string> bytesFromBase64(std::string_view text) {
    static constexpr auto table = meanings();
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3 + 3);
    std::uint32_t bits = 0;
    std::size_t digitCount = 0;
    std::size_t paddingCount = 0;
    for (const char c : text) {
        const std::int8_t meaning = table[static_cast<unsigned char>(c)];
        if (meaning == noDigit)
            continue;
        if (meaning == padding) {
            ++paddingCount;
            continue;
        }
        if (paddingCount > 0)
            return std::nullopt;
        bits = bits << 6 | static_cast<std::uint32_t>(meaning);
        ++digitCount;
        if (digitCount % 4 != 1)
            bytes += static_cast<char>(static_cast<unsigned char>(bits >> (6 - 2 * ((digitCount - 1) % 4))));
    }
    // A single digit is not a byte, and whole groups of four need no padding.
    const std::size_t rest = digitCount % 4;
    const bool whole = rest == 0 ? paddingCount == 0 : rest != 1 && paddingCount <= 4 - rest;
    return whole ? std::optional(std::move(bytes)) : std::nullopt;
}

void appendBase64(std::string& text, std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - at);
        std::uint32_t bits = 0;
        for (std::size_t i = 0; i < 3; ++i)
            bits = bits << 8 | (i < count ? static_cast<unsigned char>(bytes[at + i]) : 0u);
        for (std::size_t i = 0; i < 4; ++i)
            text += i <= count ? digits[bits >> (18 - 6 * i) & 0x3F] : '=';
    }
}

} // namespace platform
