#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace wardlock::cli {

/// Reads a descriptor line by line.
class LineReader {
public:
    /// A longer line is truncated, and tooLong() returns true.
    static constexpr std::size_t longestLine = std::size_t(1024) * 1024;

    /// `wait` returns true when the descriptor is readable, and false to end the reading.
    LineReader(int descriptor, std::function<bool(int descriptor)> wait)
        : descriptor_(descriptor), wait_(std::move(wait)) {}

    /// Returns the next line without its line feed; none at the end. The last line may lack a line feed.
    /// Throws std::system_error when reading fails.
    std::optional<std::string> next();
    bool tooLong() const { return tooLong_; }

    /// What is left of bytes that were read.
    struct Edited {
        std::string bytes = {};
        /// Whether the input ends here.
        bool ended = false;
    };
    /// Passes what is read through the function first; none for no function.
    void setEdit(std::function<Edited(std::string_view bytes)> edit) { edit_ = std::move(edit); }

private:
    /// Returns false at the end.
    bool readMore();
    std::string take(std::size_t length);

    int descriptor_;
    std::function<bool(int)> wait_;
    std::function<Edited(std::string_view)> edit_;
    std::string buffer_;
    bool ended_ = false;
    bool tooLong_ = false;
};

} // namespace wardlock::cli
