#pragma once

#include "manual/Description.h"

#include <string>

namespace wardlock::manual {

/// The program's manual page of section 1.
std::string manualPage(const Program& program);

/// The program's completion for bash, to be found by bash-completion under the program's name.
std::string bashCompletion(const Program& program);
/// The program's completion for zsh, a function file for its `fpath`.
std::string zshCompletion(const Program& program);

} // namespace wardlock::manual
