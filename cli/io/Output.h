#pragma once

#include <string_view>

namespace wardlock::cli {

/// Standard output of the command. What cannot be written ends the verb with a CommandError instead of being
/// lost, and a reader that went away is such a failure too, not a signal's death. A reader that is only slow
/// is waited for, though its end of the pipe or terminal was made not to block. One thread.
class Output {
public:
    /// Adds a line; it reaches the reader with the next flush() at the latest.
    static void line(std::string_view text);
    /// Adds text as it is.
    static void text(std::string_view text);
    /// Adds a line that came from elsewhere: byte by byte, but to a terminal with escapes for what the
    /// terminal would obey.
    static void foreignLine(std::string_view text);
    static void flush();
    /// flush() for the end of the process: failures have nobody to be told to.
    static void flushLast() noexcept;
    /// One line to standard error, with escapes for control characters, those that end lines too; failures
    /// there have nobody to be told to.
    static void error(std::string_view text);
};

} // namespace wardlock::cli
