#pragma once

#include "platform/values/ShortString.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

namespace platform {

/// A text that grows at its end by many small pieces. They are collected in a block, which stays in the
/// processor's cache and is copied when it is full. A short text costs one allocation of just its length.
class StringBuilder {
public:
    /// A piece of so many tabs.
    struct Tabs {
        std::size_t count;
    };

    StringBuilder() = default;
    StringBuilder(const StringBuilder&) = delete;
    StringBuilder& operator=(const StringBuilder&) = delete;

    /// Makes room for a text of about this length.
    void expect(std::size_t length) { text_.reserve(length); }

    /// Puts literals, texts and tabs, one after the other. Inlined, so that the pieces stay in registers.
    template <class... Pieces>
    [[gnu::always_inline]] void put(const Pieces&... pieces) {
        const std::size_t size = (sizeOf(pieces) + ...);
        if (size > static_cast<std::size_t>(end() - next_)) [[unlikely]] {
            flush();
            if (size > longest)
                return (putLong(pieces), ...);
        }
        char* to = next_;
        ((to = copy(to, pieces)), ...);
        next_ = to;
    }
    /// Puts a part of the text again.
    void repeat(std::size_t start, std::size_t length) {
        // A part that is in the block only in part becomes whole. And put() must not flush: that moves the
        // text.
        const bool hasRoom = length <= static_cast<std::size_t>(end() - next_);
        if (!hasRoom || (start < text_.size() && start + length > text_.size()))
            flush();
        const char* const from =
            start < text_.size() ? text_.data() + start : block_.data() + (start - text_.size());
        put(LongPiece{{from, length}});
    }
    std::size_t size() const { return text_.size() + static_cast<std::size_t>(next_ - block_.data()); }
    /// Returns the whole text; nothing may be added afterwards.
    std::string take() {
        flush();
        return std::move(text_);
    }

private:
    /// A text that is copied by a call, which is the faster way for one that is not short.
    struct LongPiece {
        std::string_view text;
    };

    template <std::size_t Size>
    static constexpr std::size_t sizeOf(const char (&)[Size]) {
        return Size - 1;
    }
    static std::size_t sizeOf(std::string_view piece) { return piece.size(); }
    static std::size_t sizeOf(LongPiece piece) { return piece.text.size(); }
    static std::size_t sizeOf(Tabs tabs) { return tabs.count; }

    template <std::size_t Size>
    static char* copy(char* to, const char (&literal)[Size]) {
        std::memcpy(to, literal, Size - 1);
        return to + Size - 1;
    }
    static char* copy(char* to, std::string_view piece) {
        if (piece.size() > longestShort)
            return copy(to, LongPiece{piece});
        copyShortString(to, piece);
        return to + piece.size();
    }
    static char* copy(char* to, LongPiece piece) {
        std::memcpy(to, piece.text.data(), piece.text.size());
        return to + piece.text.size();
    }
    static char* copy(char* to, Tabs tabs) {
        // Few tabs take one step: more than that are written, and overwritten by what follows.
        if (tabs.count <= spare)
            std::memset(to, '\t', spare);
        else
            std::memset(to, '\t', tabs.count);
        return to + tabs.count;
    }

    void putLong(Tabs tabs) { text_.append(tabs.count, '\t'); }
    void putLong(std::string_view piece) { text_.append(piece); }
    void putLong(LongPiece piece) { text_.append(piece.text); }
    /// Apart, so that put() is short enough to be inlined.
    [[gnu::noinline]] void flush() {
        text_.append(block_.data(), static_cast<std::size_t>(next_ - block_.data()));
        next_ = block_.data();
    }
    const char* end() const { return block_.data() + longest; }

    static constexpr std::size_t longestShort = 64;
    /// Bytes behind those that are asked for.
    static constexpr std::size_t spare = 16;
    /// The pieces of one call that fit into the block.
    static constexpr std::size_t longest = std::size_t(8) << 10;

    std::string text_;
    /// Not initialised: that would cost more than it saves.
    std::array<char, longest + spare> block_;
    char* next_ = block_.data();
};

} // namespace platform
