#pragma once

/// The order of texts in the user's language, as the environment of the process's start names it
/// (LC_ALL, LC_COLLATE, LANG), whatever locale the program runs in; byte order of the folded texts where that
/// locale is not installed. Any thread.

#include "platform/base/Export.h"

#include <string>
#include <string_view>

namespace platform {

/// Appends the text's sort key without regard to letter case. Two texts compare as the bytes of their keys
/// do, so a key made once per text serves a whole sort.
WARDLOCK_API void appendLocalizedKey(std::string_view text, std::string& keys);

} // namespace platform
