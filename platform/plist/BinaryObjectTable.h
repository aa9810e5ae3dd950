#pragma once

#include "platform/plist/BinaryNumber.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace platform {

/// The objects of a property list in the binary form, by their numbers: where each of them is, and what its
/// marker says. Every length is checked against the bytes that are there.
class BinaryObjectTable {
public:
    static constexpr std::string_view magic = "bplist00";

    enum Kind : std::uint8_t {
        Single = 0x0,
        Integer = 0x1,
        Real = 0x2,
        Date = 0x3,
        Data = 0x4,
        AsciiString = 0x5,
        Utf16String = 0x6,
        Uid = 0x8,
        ArrayKind = 0xA,
        DictionaryKind = 0xD
    };

    /// The bytes of an object after its marker and length.
    struct Content {
        std::uint8_t kind;
        std::uint64_t length;
        std::size_t start;
    };

    /// `bytes` must outlive the table.
    explicit BinaryObjectTable(std::string_view bytes) : bytes_(bytes) {}

    /// Returns whether the bytes end with a description of a table that they have room for. Call it first.
    bool readTrailer();

    std::uint64_t objectCount() const { return objectCount_; }
    std::uint64_t topObject() const { return topObject_; }
    std::size_t referenceSize() const { return referenceSize_; }

    /// Returns the position of the object of that number, which must be below the count. It may be outside
    /// the objects.
    std::uint64_t offsetOf(std::uint64_t object) const { return numberAt(entryOf(object), offsetSize_); }
    /// Returns whether an object may be at that position.
    bool contains(std::uint64_t offset) const { return offset >= magic.size() && offset < table_; }
    /// Returns the bytes of the table for `count` objects from `first` on, all below the count.
    std::string_view offsets(std::uint64_t first, std::size_t count) const {
        return bytes_.substr(entryOf(first), count * offsetSize_);
    }
    /// Returns the content of the object of that number, which must be below the count.
    std::optional<Content> contentOf(std::uint64_t object) const {
        const std::uint64_t offset = offsetOf(object);
        return contains(offset) ? contentAt(static_cast<std::size_t>(offset)) : std::nullopt;
    }
    /// Returns whether `count` items of `size` bytes fit between `at` and the offset table.
    bool fits(std::size_t at, std::uint64_t count, std::uint64_t size) const {
        return at <= table_ && count <= (table_ - at) / size;
    }
    std::string_view bytes(std::size_t at, std::uint64_t length) const {
        return bytes_.substr(at, static_cast<std::size_t>(length));
    }
    /// Returns the reference at a position, or another number of that length.
    std::uint64_t numberAt(std::size_t at, std::size_t length) const {
        // The offsets and references of a short document.
        if (length == 1)
            return static_cast<unsigned char>(bytes_[at]);
        return bigEndian({bytes_.data() + at, length});
    }

private:
    std::size_t entryOf(std::uint64_t object) const {
        return table_ + static_cast<std::size_t>(object) * offsetSize_;
    }
    std::optional<Content> contentAt(std::size_t offset) const;

    std::string_view bytes_;
    std::size_t offsetSize_ = 0;
    std::size_t referenceSize_ = 0;
    std::uint64_t objectCount_ = 0;
    std::uint64_t topObject_ = 0;
    /// The position of the offset table.
    std::size_t table_ = 0;
};

} // namespace platform
