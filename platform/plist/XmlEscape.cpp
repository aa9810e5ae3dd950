#include "platform/plist/XmlEscape.h"

#include "platform/base/ByteVector.h"
#include "platform/base/Utf8.h"
#include "platform/plist/XmlCharacter.h"
#include "platform/values/ShortString.h"

#include <algorithm>

namespace platform {

namespace {

constexpr std::uint64_t everyByte(unsigned char byte) {
    return 0x0101010101010101u * byte;
}

/// Tests eight bytes at once: the highest bit of some byte of the result is set exactly when one of the
/// word's bytes is zero.
constexpr std::uint64_t zeroBytes(std::uint64_t word) {
    return (word - everyByte(1)) & ~word;
}

/// Returns whether one of the eight is a control character, "&", "<", ">" or not ASCII.
constexpr bool hasSpecial(std::uint64_t word) {
    const std::uint64_t control = (word - everyByte(0x20)) & ~word;
    const std::uint64_t ampersand = zeroBytes(word ^ everyByte('&'));
    // "<" and ">" differ in one bit.
    const std::uint64_t angle = zeroBytes((word | everyByte('<' ^ '>')) ^ everyByte('>'));
    return ((control | ampersand | angle | word) & everyByte(0x80)) != 0;
}

/// The same for as many bytes as a vector has.
bool hasSpecial(const ByteVector& bytes) {
    return bytes.notAsciiBelowOr(0x20, '&', '<', '>') != 0;
}

/// A function object: the searches below call it for each character, and it is inlined there.
constexpr auto isSpecial = [](char c) {
    return static_cast<unsigned char>(c) < 0x20 || static_cast<unsigned char>(c) >= 0x80 || c == '&' ||
           c == '<' || c == '>';
};

void appendAscii(std::string& text, char c) {
    switch (c) {
    case '&':
        text += "&amp;";
        return;
    case '<':
        text += "&lt;";
        return;
    case '>':
        text += "&gt;";
        return;
    case '\t':
    case '\n':
        text += c;
        return;
    case '\r':
        text += "&#13;";
        return;
    default:
        appendReplacement(text, static_cast<unsigned char>(c));
    }
}

/// Appends the escape of the special character at the front; returns how many bytes it takes.
std::size_t appendSpecial(std::string& text, std::string_view characters) {
    const auto [character, length] = decodeUtf8(characters, 0);
    if (length == 1)
        appendAscii(text, characters.front());
    else if (length == 0)
        text += "\xEF\xBF\xBD";
    else if (isXmlCharacter(character))
        text += characters.substr(0, length);
    else
        appendReplacement(text, character);
    return std::max<std::size_t>(length, 1);
}

} // namespace

bool needsNoEscape(std::string_view text) {
    const char* const begin = text.data();
    const std::size_t length = text.size();
    if (length >= ByteVector::size) {
        for (std::size_t at = 0; at + ByteVector::size < length; at += ByteVector::size)
            if (hasSpecial(ByteVector(begin + at)))
                return false;
        return !hasSpecial(ByteVector(begin + length - ByteVector::size));
    }
    if (length < 8)
        return std::none_of(text.begin(), text.end(), isSpecial);
    return !hasSpecial(loadWord<std::uint64_t>(begin)) &&
           !hasSpecial(loadWord<std::uint64_t>(begin + length - 8));
}

std::string escaped(std::string_view text) {
    std::string result;
    result.reserve(text.size() + text.size() / 4);
    for (;;) {
        const auto special = std::find_if(text.begin(), text.end(), isSpecial);
        const auto plain = static_cast<std::size_t>(special - text.begin());
        result += text.substr(0, plain);
        text.remove_prefix(plain);
        if (text.empty())
            return result;
        text.remove_prefix(appendSpecial(result, text));
    }
}

} // namespace platform
