#include "platform/plist/XmlCharacter.h"

#include "platform/base/Utf8.h"

#include <charconv>
#include <cstdint>

namespace platform {

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";
constexpr std::string_view codeStart = "U+";
constexpr std::size_t codeDigits = 4;

} // namespace

bool isXmlCharacter(char32_t character) {
    if (character < 0x20)
        return character == '\t' || character == '\n' || character == '\r';
    return character != 0xFFFE && character != 0xFFFF && isCharacter(character);
}

void appendReplacement(std::string& text, char32_t character) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    text.append(replacement).append("<!--").append(codeStart);
    for (int shift = 12; shift >= 0; shift -= 4)
        text += digits[character >> shift & 0xF];
    text += "-->";
}

void restoreReplaced(std::string& text, std::string_view comment) {
    if (!text.ends_with(replacement) || !comment.starts_with(codeStart) ||
        comment.size() != codeStart.size() + codeDigits)
        return;
    std::uint32_t character = 0;
    const char* const end = comment.data() + comment.size();
    const auto [stop, error] = std::from_chars(comment.data() + codeStart.size(), end, character, 16);
    if (error != std::errc() || stop != end || !isCharacter(character) || isXmlCharacter(character))
        return;
    text.resize(text.size() - replacement.size());
    appendUtf8(character, text);
}

} // namespace platform
