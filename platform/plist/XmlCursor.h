#pragma once

#include "platform/values/ShortString.h"

#include <cstddef>
#include <cstring>
#include <string_view>

namespace platform {

/// A position in an XML text. A function that does not find its text takes nothing.
class XmlCursor {
public:
    explicit XmlCursor(std::string_view text) : at_(text.data()), end_(text.data() + text.size()) {}

    bool atEnd() const { return at_ == end_; }
    std::string_view rest() const { return {at_, static_cast<std::size_t>(end_ - at_)}; }
    /// Returns the character `ahead` bytes further on; NUL beyond the end.
    char peek(std::size_t ahead = 0) const { return ahead < rest().size() ? at_[ahead] : '\0'; }
    void skip(std::size_t length) { at_ += length; }

    /// Takes `literal` when it comes next.
    template <std::size_t Size>
    bool take(const char (&literal)[Size]) {
        constexpr std::size_t length = Size - 1;
        if (rest().size() < length || std::memcmp(at_, literal, length) != 0)
            return false;
        at_ += length;
        return true;
    }

    /// Takes the text and the literal after it, when both come next.
    template <std::size_t Size>
    bool take(std::string_view text, const char (&literal)[Size]) {
        constexpr std::size_t length = Size - 1;
        if (rest().size() < text.size() + length || !equalShortStrings({at_, text.size()}, text) ||
            std::memcmp(at_ + text.size(), literal, length) != 0)
            return false;
        at_ += text.size() + length;
        return true;
    }

    void skipSpace() {
        while (at_ != end_ && (*at_ == ' ' || *at_ == '\t' || *at_ == '\n' || *at_ == '\r'))
            ++at_;
    }

    /// Takes everything up to and including the literal.
    bool skipPast(std::string_view literal) {
        const std::size_t found = rest().find(literal);
        if (found == std::string_view::npos)
            return false;
        at_ += found + literal.size();
        return true;
    }

    /// Takes the text before the next `character`, which is not taken. Returns false, and takes nothing, when
    /// there is none.
    bool takeUntil(char character, std::string_view& text) {
        const void* found = std::memchr(at_, character, rest().size());
        if (!found)
            return false;
        text = {at_, static_cast<std::size_t>(static_cast<const char*>(found) - at_)};
        at_ = static_cast<const char*>(found);
        return true;
    }

private:
    const char* at_;
    const char* end_;
};

} // namespace platform
