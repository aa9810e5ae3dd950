#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace platform {

template <class Word>
std::uint64_t loadWord(const char* from) {
    Word word;
    std::memcpy(&word, from, sizeof word);
    return word;
}

/// Hashes short texts: their length, middle and last letters, where the keys of one record and the
/// identifiers of one list differ. Collisions are easy to construct, so the caller must bound what they cost.
inline std::size_t hashShortString(std::string_view text) {
    const char* const begin = text.data();
    const std::size_t length = text.size();
    std::uint64_t head = 0;
    std::uint64_t tail = 0;
    if (length >= 8) {
        head = loadWord<std::uint64_t>(begin + (length - 8) / 2);
        tail = loadWord<std::uint64_t>(begin + length - 8);
    } else if (length >= 4) {
        head = loadWord<std::uint32_t>(begin);
        tail = loadWord<std::uint32_t>(begin + length - 4);
    } else if (length > 0) {
        head = static_cast<unsigned char>(begin[0]);
        tail = static_cast<unsigned char>(begin[length - 1]);
    }
    const std::uint64_t mixed = (head ^ std::rotl(tail, 23) ^ length) * 0x9E3779B97F4A7C15u;
    return static_cast<std::size_t>(mixed >> 32 ^ mixed >> 48);
}

/// Copies the text to an address with room for it, without the call that a copy of any length costs.
inline void copyShortString(char* to, std::string_view text) {
    const char* const from = text.data();
    const std::size_t length = text.size();
    if (length >= 8) {
        for (std::size_t at = 0; at + 8 < length; at += 8)
            std::memcpy(to + at, from + at, 8);
        // The last ones overlap those before.
        std::memcpy(to + length - 8, from + length - 8, 8);
        return;
    }
    for (std::size_t i = 0; i < length; ++i)
        to[i] = from[i];
}

/// Returns whether the first and the last bytes of two texts of one length are equal, a word of each.
template <class Word>
bool sameEnds(std::string_view a, std::string_view b) {
    const std::size_t last = a.size() - sizeof(Word);
    return loadWord<Word>(a.data()) == loadWord<Word>(b.data()) &&
           loadWord<Word>(a.data() + last) == loadWord<Word>(b.data() + last);
}

/// Compares short texts, without the call that a comparison of any length costs.
inline bool equalShortStrings(std::string_view a, std::string_view b) {
    const std::size_t length = a.size();
    if (length != b.size())
        return false;
    if (length >= 8) {
        for (std::size_t at = 8; at + 8 < length; at += 8)
            if (loadWord<std::uint64_t>(a.data() + at) != loadWord<std::uint64_t>(b.data() + at))
                return false;
        return sameEnds<std::uint64_t>(a, b);
    }
    if (length >= 4)
        return sameEnds<std::uint32_t>(a, b);
    for (std::size_t i = 0; i < length; ++i)
        if (a[i] != b[i])
            return false;
    return true;
}

} // namespace platform
