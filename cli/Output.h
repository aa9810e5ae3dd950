#pragma once

#include <string_view>

namespace wardlock::cli {

/// Standard output of the command. What cannot be written ends the verb with a CommandError instead of being
/// lost, and a reader that went away is such a failure too, not a signal's death.
class Output {
public:
    /// Adds a line; it reaches the reader with the next flush() at the latest.
    static void line(std::string_view text);
    /// Adds text as it is.
    static void text(std::string_view text);
    static void flush();
    /// One line to standard error; failures there have nobody to be told to.
    static void error(std::string_view text);
};

} // namespace wardlock::cli
