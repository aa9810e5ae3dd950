#pragma once

#include "cli/fullscreen/Role.h"
#include "cli/fullscreen/TerminalTraits.h"

namespace wardlock::cli {

/// Prepares the colours of the terminal that was taken. Precondition: a CursesTerminal exists.
void setLooks(const TerminalTraits& traits);
/// Selects the look of what is written next.
void useLook(Role role);

} // namespace wardlock::cli
