#pragma once

/// UTF-8 as the standard has it: no surrogates, nothing overlong, nothing beyond U+10FFFF.

#include "platform/base/Export.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

struct DecodedCharacter {
    char32_t character = 0;
    /// Bytes taken; 0 where no well-formed character begins.
    std::size_t length = 0;
};

/// The character that begins at `position`, which lies inside the text.
WARDLOCK_API DecodedCharacter decodeUtf8(std::string_view text, std::size_t position);
WARDLOCK_API bool isValidUtf8(std::string_view text);
/// Whether UTF-8 can hold the character: no surrogate, nothing beyond U+10FFFF.
WARDLOCK_API bool isCharacter(char32_t code);
/// Nothing for what is no character.
WARDLOCK_API void appendUtf8(char32_t character, std::string& text);

} // namespace platform
