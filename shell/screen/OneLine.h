#pragma once

#include <string>

namespace wardlock::shell {

/// Typed or pasted text as a field of one line takes it: control characters at the end, the line feed of what
/// was copied, are left away, others become blanks.
std::string oneLine(std::string text);

} // namespace wardlock::shell
