#pragma once

#include <string>
#include <string_view>

namespace wardlock::cli {

/// Returns the text as one word of a shell's command line, to be copied: unchanged where no shell needs
/// quotes, else in single quotes. A text with control characters or bytes that are not UTF-8 becomes
/// $'a\x1bb', which bash, zsh and ksh read.
std::string shellWord(std::string_view text);

} // namespace wardlock::cli
