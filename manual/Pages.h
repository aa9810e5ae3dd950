#pragma once

#include "manual/Description.h"

#include <string>

namespace wardlock::manual {

/// Returns the program's manual page of section 1.
std::string manualPage(const Program& program);

/// Returns the program's completion for bash; bash-completion finds the file by the program's name.
std::string bashCompletion(const Program& program);
/// Returns the program's completion for zsh, a function file for its `fpath`.
std::string zshCompletion(const Program& program);

} // namespace wardlock::manual
