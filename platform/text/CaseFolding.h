#pragma once

/// Text comparison without regard to letter case or language, over Unicode's simple case foldings. One
/// character folds to one character, so "ß" and "ss" stay different. Texts are UTF-8; bytes that are not
/// count as they are. Any thread.

#include "platform/base/Export.h"

#include <string>
#include <string_view>

namespace platform {

/// Returns the folded character; the character itself when it has no folding.
WARDLOCK_API char32_t simpleCaseFolding(char32_t character);

/// Appends the folded form of `text`. Two texts compare as the bytes of their folded forms do, so one form
/// per text serves a whole sort.
WARDLOCK_API void appendCaseFolded(std::string_view text, std::string& folded);

} // namespace platform
