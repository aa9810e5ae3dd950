#include "shell/screen/EscapedText.h"

#include "platform/base/Utf8.h"

#include <algorithm>

namespace wardlock::shell {

namespace {

void appendEscape(std::string& text, unsigned char byte) {
    constexpr std::string_view digits = "0123456789abcdef";
    text.append({'\\', 'x', digits[byte >> 4], digits[byte & 15]});
}

} // namespace

bool isControl(char32_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0) || character == 0x2028 ||
           character == 0x2029 || (character >= 0x202A && character <= 0x202E) ||
           (character >= 0x2066 && character <= 0x2069);
}

std::string escaped(std::string_view text, std::string_view kept) {
    std::string harmless;
    for (std::size_t position = 0; position < text.size();) {
        const auto decoded = platform::decodeUtf8(text, position);
        const std::string_view bytes = text.substr(position, std::max<std::size_t>(decoded.length, 1));
        const bool isKept = kept.find(bytes) != kept.npos;
        if (decoded.length > 0 && (!isControl(decoded.character) || isKept))
            harmless += bytes;
        else
            for (const char byte : bytes)
                appendEscape(harmless, static_cast<unsigned char>(byte));
        position += bytes.size();
    }
    return harmless;
}

} // namespace wardlock::shell
