#pragma once

#include "cli/io/CommandError.h"

#include <span>
#include <string_view>

namespace wardlock::cli {

/// Runs the command on the words that follow the program's name: finds the verb, runs it and reports its
/// failure. An exception that is not a std::exception ends the process, after its report.
ExitCode runCommandLine(std::span<const std::string_view> words);

} // namespace wardlock::cli
