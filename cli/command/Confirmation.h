#pragma once

#include <string_view>

namespace wardlock::cli {

/// Prints a question to standard error and reads a line of standard input. Returns whether it is "y" or
/// "yes", or begins with a capital; any other line, and the end of the input, is a no.
bool confirms(std::string_view question);

} // namespace wardlock::cli
