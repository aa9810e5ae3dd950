#include "platform/base/Utf8.h"

#include "platform/base/ByteVector.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace platform {
namespace {

/// Returns the first position from `at` on that is not ASCII. Most of a document is, so it goes in large
/// steps.
std::size_t skipAscii(std::string_view text, std::size_t at) {
    constexpr std::size_t size = ByteVector::size;
    const auto bytes = [&](std::size_t ahead) { return ByteVector(text.data() + at + ahead); };
    while (text.size() - at >= 4 * size &&
           (bytes(0) | bytes(size) | bytes(2 * size) | bytes(3 * size)).notAscii() == 0)
        at += 4 * size;
    for (; text.size() - at >= size; at += size)
        if (const std::uint32_t others = bytes(0).notAscii())
            return at + static_cast<std::size_t>(std::countr_zero(others));
    while (at < text.size() && static_cast<unsigned char>(text[at]) < 0x80)
        ++at;
    return at;
}

/// Length and first bits of a sequence by its lead byte; length 0 for an invalid lead byte.
struct Lead {
    std::size_t length;
    char32_t bits;
    char32_t least;
};

Lead leadOf(unsigned char byte) {
    if (byte < 0x80)
        return {1, byte, 0};
    if (byte >= 0xC2 && byte < 0xE0)
        return {2, byte & 0x1Fu, 0x80};
    if (byte >= 0xE0 && byte < 0xF0)
        return {3, byte & 0x0Fu, 0x800};
    if (byte >= 0xF0 && byte < 0xF5)
        return {4, byte & 0x07u, 0x10000};
    return {0, 0, 0};
}

} // namespace

bool isCharacter(char32_t code) {
    return code < 0xD800 || (code > 0xDFFF && code <= 0x10FFFF);
}

DecodedCharacter decodeUtf8(std::string_view text, std::size_t position) {
    const Lead lead = leadOf(static_cast<unsigned char>(text[position]));
    if (lead.length == 0 || text.size() - position < lead.length)
        return {};
    char32_t code = lead.bits;
    for (std::size_t i = 1; i < lead.length; ++i) {
        const auto byte = static_cast<unsigned char>(text[position + i]);
        if ((byte & 0xC0u) != 0x80)
            return {};
        code = (code << 6) | (byte & 0x3Fu);
    }
    if (code < lead.least || !isCharacter(code))
        return {};
    return {code, lead.length};
}

bool isValidUtf8(std::string_view text) {
    for (std::size_t i = skipAscii(text, 0); i < text.size(); i = skipAscii(text, i)) {
        const DecodedCharacter decoded = decodeUtf8(text, i);
        if (decoded.length == 0)
            return false;
        i += decoded.length;
    }
    return true;
}

bool isAscii(std::string_view text) {
    constexpr std::size_t size = ByteVector::size;
    const std::size_t length = text.size();
    if (length < size)
        return std::ranges::none_of(text, [](unsigned char c) { return c >= 0x80; });
    for (std::size_t at = 0; at + size < length; at += size)
        if (ByteVector(text.data() + at).notAscii() != 0)
            return false;
    // The last ones overlap those before.
    return ByteVector(text.data() + length - size).notAscii() == 0;
}

void appendUtf8(char32_t character, std::string& text) {
    const auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (!isCharacter(character))
        return;
    if (character < 0x80) {
        put(character);
        return;
    }
    if (character < 0x800) {
        put(0xC0 | (character >> 6));
    } else if (character < 0x10000) {
        put(0xE0 | (character >> 12));
        put(0x80 | ((character >> 6) & 0x3F));
    } else {
        put(0xF0 | (character >> 18));
        put(0x80 | ((character >> 12) & 0x3F));
        put(0x80 | ((character >> 6) & 0x3F));
    }
    put(0x80 | (character & 0x3F));
}

} // namespace platform
