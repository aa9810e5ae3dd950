#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace platform {

/// A text that grows at its end by many small pieces.
class StringBuilder {
public:
    /// Reserves `expected` bytes.
    explicit StringBuilder(std::size_t expected) : text_(expected, '\0') {}

    template <std::size_t Size>
    void put(const char (&literal)[Size]) {
        std::memcpy(room(Size - 1), literal, Size - 1);
        length_ += Size - 1;
    }
    void put(std::string_view piece) {
        // Not memcpy: a piece may be empty, and then without an address.
        length_ += piece.copy(room(piece.size()), piece.size());
    }
    void putTabs(std::size_t count) {
        std::fill_n(room(count), count, '\t');
        length_ += count;
    }
    std::size_t size() const { return length_; }
    /// Returns the whole text; nothing may be added afterwards.
    std::string take() {
        text_.resize(length_);
        return std::move(text_);
    }

private:
    char* room(std::size_t size) {
        if (text_.size() - length_ < size)
            grow(size);
        return text_.data() + length_;
    }
    void grow(std::size_t size) { text_.resize(std::max(text_.size() * 2, length_ + size)); }

    std::string text_;
    std::size_t length_ = 0;
};

} // namespace platform
