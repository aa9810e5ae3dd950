#pragma once

#include <functional>
#include <optional>
#include <string>

namespace wardlock::cli {

/// The lines of a descriptor.
class LineReader {
public:
    /// Of a longer line the rest is left out, and tooLong() tells so.
    static constexpr std::size_t longestLine = std::size_t(1024) * 1024;

    /// `wait` comes back with true when the descriptor is readable, and with false to end the reading.
    LineReader(int descriptor, std::function<bool(int descriptor)> wait)
        : descriptor_(descriptor), wait_(std::move(wait)) {}

    /// The next line without its line feed; none at the end. A last line without one counts. Throws
    /// std::system_error when reading fails.
    std::optional<std::string> next();
    bool tooLong() const { return tooLong_; }

private:
    /// False at the end.
    bool readMore();
    std::string take(std::size_t length);

    int descriptor_;
    std::function<bool(int)> wait_;
    std::string buffer_;
    bool ended_ = false;
    bool tooLong_ = false;
};

} // namespace wardlock::cli
