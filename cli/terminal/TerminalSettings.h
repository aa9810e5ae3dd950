#pragma once

#include "cli/io/CommandError.h"

namespace wardlock::cli {

/// Runs Settings in the terminal: prints the page as text and prompts for commands, until the input ends or
/// the user quits. If standard input is not a terminal, prints the first page and how to use Settings.
ExitCode runTerminalSettings();

} // namespace wardlock::cli
