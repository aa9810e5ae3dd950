#pragma once

#include "cli/fullscreen/Role.h"
#include "cli/fullscreen/TerminalTraits.h"

namespace wardlock::cli {

/// Prepares the colours of the terminal that was taken. Returns whether there are any. Precondition: a
/// CursesTerminal exists.
bool setLooks(const TerminalTraits& traits);
/// Replaces the colours by those for that ground.
void setGround(Ground ground);
/// Selects the look of what is written next.
void useLook(Role role);

} // namespace wardlock::cli
