#pragma once

#include <string>
#include <string_view>

namespace wardlock::cli {

/// The text as one word of a shell's command line, for a person to copy: as it is where every shell takes it
/// so, else in single quotes. A text with control characters or bytes that are not UTF-8 is written
/// $'a\x1bb', which bash, zsh and ksh read.
std::string shellWord(std::string_view text);

} // namespace wardlock::cli
