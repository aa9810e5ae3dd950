#pragma once

/// Sixteen bytes of a text, compared in one step. SSE2, which every 64-bit x86 processor has, makes scans of
/// whole documents several times faster. The plain form is for other processors.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace platform {

class PlainByteVector {
public:
    static constexpr std::size_t size = 16;

    /// Loads `size` bytes.
    explicit PlainByteVector(const char* from) { std::memcpy(bytes_.data(), from, size); }

    friend PlainByteVector operator|(PlainByteVector a, const PlainByteVector& b) {
        for (std::size_t i = 0; i < size; ++i)
            a.bytes_[i] = static_cast<char>(a.bytes_[i] | b.bytes_[i]);
        return a;
    }

    /// Each function returns a bit per byte; the lowest bit is the first byte's.

    /// The bytes that are one of these.
    template <class... Chars>
    std::uint32_t equal(Chars... bytes) const {
        return bits([&](std::size_t i) { return ((bytes_[i] == bytes) || ...); });
    }
    std::uint32_t equal(const PlainByteVector& other) const {
        return bits([&](std::size_t i) { return bytes_[i] == other.bytes_[i]; });
    }
    std::uint32_t notAscii() const {
        return bits([&](std::size_t i) { return static_cast<unsigned char>(bytes_[i]) >= 0x80; });
    }
    /// The bytes that are not ASCII, below `bound`, which is, or one of the others.
    template <class... Chars>
    std::uint32_t notAsciiBelowOr(char bound, Chars... others) const {
        return bits([&](std::size_t i) {
            return static_cast<signed char>(bytes_[i]) < static_cast<signed char>(bound) ||
                   ((bytes_[i] == others) || ...);
        });
    }

private:
    template <class Test>
    static std::uint32_t bits(Test test) {
        std::uint32_t mask = 0;
        for (std::size_t i = 0; i < size; ++i)
            mask |= std::uint32_t{test(i)} << i;
        return mask;
    }

    std::array<char, size> bytes_;
};

#if defined(__SSE2__)

/// The same by SSE2.
class SseByteVector {
public:
    static constexpr std::size_t size = PlainByteVector::size;

    explicit SseByteVector(const char* from)
        : bytes_(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from))) {}

    friend SseByteVector operator|(SseByteVector a, const SseByteVector& b) {
        a.bytes_ = _mm_or_si128(a.bytes_, b.bytes_);
        return a;
    }

    template <class... Chars>
    std::uint32_t equal(Chars... bytes) const {
        return bits(foundOr(_mm_setzero_si128(), bytes...));
    }
    std::uint32_t equal(const SseByteVector& other) const {
        return bits(_mm_cmpeq_epi8(bytes_, other.bytes_));
    }
    std::uint32_t notAscii() const { return bits(bytes_); }
    template <class... Chars>
    std::uint32_t notAsciiBelowOr(char bound, Chars... others) const {
        return bits(foundOr(_mm_cmplt_epi8(bytes_, _mm_set1_epi8(bound)), others...));
    }

private:
    /// Adds the bytes that are one of these to those that were found.
    template <class... Chars>
    __m128i foundOr(__m128i found, Chars... bytes) const {
        ((found = _mm_or_si128(found, _mm_cmpeq_epi8(bytes_, _mm_set1_epi8(bytes)))), ...);
        return found;
    }
    static std::uint32_t bits(__m128i bytes) { return static_cast<std::uint32_t>(_mm_movemask_epi8(bytes)); }

    __m128i bytes_;
};

using ByteVector = SseByteVector;
#else
using ByteVector = PlainByteVector;
#endif

/// The result of a comparison in which all bytes are equal.
inline constexpr std::uint32_t allBytes = (std::uint32_t{1} << ByteVector::size) - 1;

} // namespace platform
