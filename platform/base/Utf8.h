#pragma once

/// UTF-8 as the standard defines it: no surrogates, no overlong forms, nothing beyond U+10FFFF.

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

/// Decodes the character that begins at `position`, which must lie inside the text.
WARDLOCK_API DecodedCharacter decodeUtf8(std::string_view text, std::size_t position);
WARDLOCK_API bool isValidUtf8(std::string_view text);
WARDLOCK_API bool isAscii(std::string_view text);
/// Returns whether UTF-8 can encode `code`: not a surrogate, not beyond U+10FFFF.
WARDLOCK_API bool isCharacter(char32_t code);
/// Appends the character in UTF-8; appends nothing where `character` is not a character.
WARDLOCK_API void appendUtf8(char32_t character, std::string& text);

} // namespace platform
