#pragma once

#include <string>
#include <string_view>

namespace wardlock::shell {

/// Returns whether a terminal would obey the character instead of showing it: controls, and those that end a
/// line or turn the direction of writing.
bool isControl(char32_t character);

/// Returns the whole text without anything that a terminal would obey: each byte of a control character and
/// each byte that is not UTF-8 becomes "\x1b" and the like. Every front end shows control characters in this
/// form. Characters in `kept` stay.
std::string escaped(std::string_view text, std::string_view kept = {});

} // namespace wardlock::shell
