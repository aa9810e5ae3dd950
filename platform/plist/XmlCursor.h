#pragma once

#include "platform/base/ByteVector.h"
#include "platform/values/ShortString.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
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

    bool take(std::string_view text) {
        if (rest().size() < text.size() || !equal(at_, text))
            return false;
        at_ += text.size();
        return true;
    }

    /// Takes "<true/>" or "<false/>". May return nothing at the very end of a text, where the general way has
    /// to be taken. Which of the two it is takes no branch: it would be mispredicted half of the time.
    std::optional<bool> takeBoolean() {
        using Bytes = std::array<char, 8>;
        constexpr auto trueTag = std::bit_cast<std::uint64_t>(Bytes{'<', 't', 'r', 'u', 'e', '/', '>', 0});
        constexpr auto falseTag = std::bit_cast<std::uint64_t>(Bytes{'<', 'f', 'a', 'l', 's', 'e', '/', '>'});
        constexpr auto firstSeven = std::bit_cast<std::uint64_t>(Bytes{-1, -1, -1, -1, -1, -1, -1, 0});
        if (rest().size() < sizeof(Bytes))
            return std::nullopt;
        const std::uint64_t word = loadWord<std::uint64_t>(at_);
        const bool isTrue = (word & firstSeven) == trueTag;
        const bool isFalse = word == falseTag;
        if (!(static_cast<int>(isTrue) | static_cast<int>(isFalse)))
            return std::nullopt;
        at_ += sizeof(Bytes) - static_cast<std::size_t>(isTrue);
        return isTrue;
    }

    void skipSpace() {
        if (peek() > ' ')
            return;
        while (rest().size() >= ByteVector::size) {
            const ByteVector bytes(at_);
            const std::uint32_t space = bytes.equal('\t', '\n', ' ', '\r');
            at_ += std::countr_one(space);
            if (space != allBytes)
                return;
        }
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

    /// Takes the text before the next "<" or "&", which is not taken. Returns false, and takes nothing, when
    /// there is neither.
    bool takePlainText(std::string_view& text) {
        const char* stop = at_;
        for (; static_cast<std::size_t>(end_ - stop) >= ByteVector::size; stop += ByteVector::size) {
            const ByteVector bytes(stop);
            if (const std::uint32_t found = bytes.equal('<', '&')) {
                stop += std::countr_zero(found);
                break;
            }
        }
        while (stop != end_ && *stop != '<' && *stop != '&')
            ++stop;
        if (stop == end_)
            return false;
        text = {at_, static_cast<std::size_t>(stop - at_)};
        at_ = stop;
        return true;
    }

    /// Returns the text from here to a later position.
    std::string_view textUntil(const XmlCursor& later) const {
        return {at_, static_cast<std::size_t>(later.at_ - at_)};
    }

private:
    static bool equal(const char* at, std::string_view text) {
        const std::size_t length = text.size();
        if (length < ByteVector::size)
            return equalShortStrings({at, length}, text);
        const auto equalFrom = [&](std::size_t i) {
            return ByteVector(at + i).equal(ByteVector(text.data() + i)) == allBytes;
        };
        for (std::size_t i = 0; i + ByteVector::size < length; i += ByteVector::size)
            if (!equalFrom(i))
                return false;
        return equalFrom(length - ByteVector::size);
    }

    const char* at_;
    const char* end_;
};

} // namespace platform
