#pragma once

#include "cli/io/CommandError.h"

namespace wardlock::cli {

enum class TerminalStyle {
    /// On the whole screen, where the terminal has one.
    Automatic,
    /// Line by line: for screen readers, and terminals of little ability.
    Plain
};

/// Runs Settings in the terminal until the user quits or the input ends. If standard input is not a terminal,
/// prints the first page and how to use Settings.
ExitCode runTerminalSettings(TerminalStyle style);

} // namespace wardlock::cli
