#pragma once

/// Texts without regard to letter case or language, over Unicode's simple case foldings: one character
/// stands for one character, so that "ß" and "ss" stay different. Texts are UTF-8; bytes that are none count
/// as they are. Any thread.

#include "platform/base/Export.h"

#include <string>
#include <string_view>

namespace platform {

/// The character itself when it has no folding.
WARDLOCK_API char32_t simpleCaseFolding(char32_t character);

/// Appends the text's folded form. Two texts compare as the bytes of their folded forms do, so a form made
/// once per text serves a whole sort.
WARDLOCK_API void appendCaseFolded(std::string_view text, std::string& folded);

} // namespace platform
