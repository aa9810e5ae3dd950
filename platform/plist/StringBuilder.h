#pragma once

#include "platform/values/ShortString.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

namespace platform {

/// A text that grows at its end by many small pieces.
class StringBuilder {
public:
    /// Reserves `expected` bytes.
    explicit StringBuilder(std::size_t expected) : text_(expected + spare, '\0') { continueAt(0); }
    StringBuilder(const StringBuilder&) = delete;
    StringBuilder& operator=(const StringBuilder&) = delete;

    template <std::size_t Size>
    void put(const char (&literal)[Size]) {
        std::memcpy(room(Size - 1), literal, Size - 1);
    }
    void put(std::string_view piece) {
        char* const to = room(piece.size());
        if (piece.size() <= longestShort)
            copyShortString(to, piece);
        else
            std::memcpy(to, piece.data(), piece.size());
    }
    void putTabs(std::size_t count) {
        char* const to = room(count);
        // Few tabs take one step: more than that are written, and overwritten by what follows.
        if (count <= spare)
            std::memset(to, '\t', spare);
        else
            std::memset(to, '\t', count);
    }
    /// Puts a part of the text again.
    void repeat(std::size_t start, std::size_t length) {
        char* const to = room(length);
        std::memcpy(to, text_.data() + start, length);
    }
    std::size_t size() const { return static_cast<std::size_t>(next_ - text_.data()); }
    /// Returns the whole text; nothing may be added afterwards.
    std::string take() {
        text_.resize(size());
        return std::move(text_);
    }

private:
    char* room(std::size_t size) {
        if (size > static_cast<std::size_t>(end_ - next_)) [[unlikely]]
            grow(size);
        return std::exchange(next_, next_ + size);
    }
    /// Apart, so that room() is short enough to be inlined.
    [[gnu::noinline]] void grow(std::size_t more) {
        const std::size_t used = size();
        text_.resize(std::max(text_.size() * 2, used + more + spare));
        continueAt(used);
    }
    void continueAt(std::size_t used) {
        next_ = text_.data() + used;
        end_ = text_.data() + text_.size() - spare;
    }

    static constexpr std::size_t longestShort = 64;
    /// Bytes behind those that are asked for.
    static constexpr std::size_t spare = 16;

    std::string text_;
    char* next_ = nullptr;
    char* end_ = nullptr;
};

} // namespace platform
