#pragma once

#include <string>

namespace wardlock::shell {

/// Returns typed or pasted text for a field of one line. Control characters at the end, such as the line feed
/// of copied text, are removed; others become blanks.
std::string oneLine(std::string text);

} // namespace wardlock::shell
