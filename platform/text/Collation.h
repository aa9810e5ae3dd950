#pragma once

/// The order of texts in the user's language, whatever locale the program runs in. The environment at the
/// process's start names the language (LC_ALL, LC_COLLATE, LANG). Where its locale is not installed: the byte
/// order of the folded texts. Any thread.

#include "platform/base/Export.h"

#include <string>
#include <string_view>

namespace platform {

/// Appends the sort key of `text` without regard to letter case. Two texts compare as the bytes of their keys
/// do, so one key per text serves a whole sort.
WARDLOCK_API void appendLocalizedKey(std::string_view text, std::string& keys);

} // namespace platform
