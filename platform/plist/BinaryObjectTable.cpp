#include "platform/plist/BinaryObjectTable.h"

#include <algorithm>

namespace platform {

namespace {

constexpr std::size_t trailerLength = 32;
/// Width of offsets and references, in bytes.
constexpr std::size_t widest = 16;

} // namespace

/// Reads the last 32 bytes: six unused, the sizes of an offset and of a reference, the number of objects, the
/// top object, and the position of the offset table.
bool BinaryObjectTable::readTrailer() {
    if (!bytes_.starts_with(magic) || bytes_.size() < magic.size() + trailerLength)
        return false;
    const std::size_t trailer = bytes_.size() - trailerLength;
    offsetSize_ = static_cast<std::size_t>(numberAt(trailer + 6, 1));
    referenceSize_ = static_cast<std::size_t>(numberAt(trailer + 7, 1));
    objectCount_ = numberAt(trailer + 8, 8);
    topObject_ = numberAt(trailer + 16, 8);
    const std::uint64_t table = numberAt(trailer + 24, 8);
    const bool sizesAreSound =
        offsetSize_ >= 1 && offsetSize_ <= widest && referenceSize_ >= 1 && referenceSize_ <= widest;
    if (!sizesAreSound || objectCount_ == 0 || table < magic.size() || table > trailer)
        return false;
    table_ = static_cast<std::size_t>(table);
    // Each object has a byte of its own, at an offset of its own: a table of millions needs a file of
    // millions.
    const std::uint64_t offsets = offsetSize_ < 8 ? std::uint64_t(1) << (8 * offsetSize_) : objectCount_;
    const std::uint64_t room = std::min<std::uint64_t>(table_ - magic.size(), offsets);
    return objectCount_ <= std::min<std::uint64_t>(room, (trailer - table_) / offsetSize_);
}

/// Reads the marker's low half: the length, or the sign that an integer object with the length follows.
std::optional<BinaryObjectTable::Content> BinaryObjectTable::contentAt(std::size_t offset) const {
    const auto marker = static_cast<std::uint8_t>(bytes_[offset]);
    Content content{static_cast<std::uint8_t>(marker >> 4), marker & 0x0Fu, offset + 1};
    const bool counted = content.kind >= Data && content.kind != Uid;
    if (!counted || content.length != 0xF)
        return content;
    if (!fits(content.start, 1, 1))
        return std::nullopt;
    const auto lengthMarker = static_cast<std::uint8_t>(bytes_[content.start]);
    const std::size_t lengthSize = std::size_t(1) << (lengthMarker & 0x0F);
    if (lengthMarker >> 4 != Integer || lengthSize > 8 || !fits(content.start + 1, 1, lengthSize))
        return std::nullopt;
    content.length = numberAt(content.start + 1, lengthSize);
    content.start += 1 + lengthSize;
    return content;
}

} // namespace platform
