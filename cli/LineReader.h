#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace wardlock::cli {

/// Waits until the main loop's descriptor is readable or the time is over.
void waitForMainLoop(std::chrono::milliseconds timeout);

/// Lines of a descriptor, read while the main loop goes on.
class LineReader {
public:
    /// No line is longer; what is beyond is left out of it, and tooLong() tells so.
    static constexpr std::size_t longestLine = 1024 * 1024;

    /// `process` lets the main loop do what is due.
    LineReader(int descriptor, std::function<void()> process)
        : descriptor_(descriptor), process_(std::move(process)) {}

    /// The next line without its line feed; none at the end. Throws std::system_error when reading fails.
    std::optional<std::string> next();
    /// Whether the line just read was longer than longestLine.
    bool tooLong() const { return tooLong_; }

private:
    /// False at the end of the input.
    bool readMore();
    std::string take(std::size_t length);

    int descriptor_;
    std::function<void()> process_;
    std::string buffer_;
    bool ended_ = false;
    bool tooLong_ = false;
};

} // namespace wardlock::cli
