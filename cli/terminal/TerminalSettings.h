#pragma once

#include "cli/io/CommandError.h"

namespace wardlock::cli {

/// Settings in the terminal: shows the page as text and asks what to do, until the input ends or the person
/// quits. Where standard input is no terminal it shows the first page and how to go on.
ExitCode runTerminalSettings();

} // namespace wardlock::cli
