#pragma once

#include "cli/io/CommandError.h"

#include <string_view>

namespace wardlock::cli {

/// Settings for scripts: one JSON command a line from the file, or from standard input for "-"; one JSON
/// answer a line. Ends with the input, as closing the window does. Throws CommandError when the file cannot
/// be read or nobody takes the answers.
ExitCode runScriptSettings(std::string_view file);

} // namespace wardlock::cli
