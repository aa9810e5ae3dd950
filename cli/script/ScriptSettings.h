#pragma once

#include "cli/io/CommandError.h"

#include <string_view>

namespace wardlock::cli {

/// Runs Settings for scripts: reads one JSON command a line from the file, or from standard input for "-",
/// and prints one JSON reply per line. Returns at the end of the input, after what closing the window does.
/// Throws CommandError when the file cannot be opened or the replies cannot be written.
ExitCode runScriptSettings(std::string_view file);

} // namespace wardlock::cli
