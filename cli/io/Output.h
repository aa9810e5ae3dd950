#pragma once

#include <string_view>

namespace wardlock::cli {

/// Standard output of the command. When it cannot be written, the verb ends with a CommandError and nothing
/// is lost silently. A reader that has closed its end ends the verb quietly (ReaderGone), not the process by
/// a signal. A slow reader is waited for, even if the pipe or terminal is non-blocking. For one thread.
class Output {
public:
    /// Adds a line; it reaches the reader with the next flush() at the latest.
    static void line(std::string_view text);
    /// Adds text unchanged.
    static void text(std::string_view text);
    /// Adds a line with text from a file or another process: unchanged, but on a terminal with escapes for
    /// what the terminal would execute.
    static void foreignLine(std::string_view text);
    static void flush();
    /// flush() for the end of the process: failures cannot be reported and are ignored.
    static void flushLast() noexcept;
    /// Prints a question to standard error, where it is seen even if the output goes elsewhere.
    static void prompt(std::string_view text);
    /// Prints one line to standard error, with escapes for all control characters, line ends included.
    /// Failures are ignored.
    static void error(std::string_view text);
};

} // namespace wardlock::cli
