#include "platform/plist/BinaryKeyRun.h"

namespace platform {

BinaryKeyRun BinaryKeyRun::of(const BinaryObjectTable& table, std::string_view references) {
    const std::size_t width = table.referenceSize();
    const std::size_t count = references.size() / width;
    if (count == 0)
        return {};
    const std::uint64_t first = bigEndian(references.substr(0, width));
    const std::uint64_t start = table.offsetOf(first);
    std::uint64_t end = start;
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint64_t object = bigEndian(references.substr(i * width, width));
        const bool isNext = object == first + i && table.offsetOf(object) == end;
        const auto content = isNext ? table.contentOf(object) : std::nullopt;
        if (!content || content->kind != BinaryObjectTable::AsciiString ||
            !table.fits(content->start, content->length, 1))
            return {};
        end = content->start + content->length;
    }
    return {std::string(references), std::string(table.offsets(first, count)),
            std::string(table.bytes(static_cast<std::size_t>(start), end - start))};
}

bool BinaryKeyRun::isIn(const BinaryObjectTable& table, std::string_view other) const {
    if (references.empty() || other != references)
        return false;
    const std::size_t width = table.referenceSize();
    const std::size_t count = other.size() / width;
    const std::uint64_t first = bigEndian(other.substr(0, width));
    if (first >= table.objectCount() || count > table.objectCount() - first ||
        table.offsets(first, count) != offsets)
        return false;
    const std::uint64_t start = table.offsetOf(first);
    return table.contains(start) && table.fits(static_cast<std::size_t>(start), objects.size(), 1) &&
           table.bytes(static_cast<std::size_t>(start), objects.size()) == objects;
}

} // namespace platform
