#include "cli/doctor/FontCharacters.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <optional>
#include <string_view>

namespace wardlock::cli {

namespace {

/// The largest tables, of fonts with every Chinese character, have less than a tenth of it.
constexpr std::size_t largestTable = 4'000'000;
constexpr std::size_t mostTables = 256;

/// A part of a font. Numbers are big-endian; beyond the end everything reads as 0.
class FontData {
public:
    explicit FontData(std::string bytes) : bytes_(std::move(bytes)) {}

    std::size_t size() const { return bytes_.size(); }
    std::string_view tag(std::size_t at) const {
        return at + 4 <= bytes_.size() ? std::string_view(bytes_).substr(at, 4) : std::string_view();
    }
    std::uint32_t number16(std::size_t at) const { return byte(at) << 8 | byte(at + 1); }
    std::uint32_t number32(std::size_t at) const { return number16(at) << 16 | number16(at + 2); }

private:
    std::uint32_t byte(std::size_t at) const {
        return at < bytes_.size() ? static_cast<unsigned char>(bytes_[at]) : 0;
    }

    std::string bytes_;
};

FontData read(std::ifstream& file, std::size_t at, std::size_t size) {
    std::string bytes(std::min(size, largestTable), '\0');
    file.clear();
    file.seekg(static_cast<std::streamoff>(at));
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return FontData(std::move(bytes));
}

/// Returns the table "cmap", which leads from characters to pictures.
std::optional<FontData> characterTable(std::ifstream& file) {
    constexpr std::size_t headSize = 16;
    constexpr std::size_t entrySize = 16;
    const FontData start = read(file, 0, headSize);
    const std::size_t font = start.tag(0) == "ttcf" ? start.number32(12) : 0;
    const FontData tables = read(file, font + 12, mostTables * entrySize);
    const std::size_t count = std::min<std::size_t>(read(file, font, headSize).number16(4), mostTables);
    for (std::size_t entry = 0; entry < count * entrySize; entry += entrySize)
        if (tables.tag(entry) == "cmap")
            return read(file, tables.number32(entry + 8), tables.number32(entry + 12));
    return std::nullopt;
}

/// In format 12, groups of characters have pictures with consecutive numbers.
bool isInGroups(const FontData& table, std::size_t at, char32_t character) {
    constexpr std::size_t groupSize = 12;
    const std::size_t first = at + 16;
    const std::size_t most = table.size() > first ? (table.size() - first) / groupSize : 0;
    const std::size_t count = std::min<std::size_t>(table.number32(at + 12), most);
    for (std::size_t group = first; group < first + count * groupSize; group += groupSize)
        if (character >= table.number32(group) && character <= table.number32(group + 4))
            return table.number32(group + 8) + (character - table.number32(group)) != 0;
    return false;
}

/// In format 4, for characters of 16 bits, picture 0 stands for a missing one. Four lists have an entry for
/// each segment: its last character, its first one, what is added, and where its list of pictures is.
bool isInSegments(const FontData& table, std::size_t at, char32_t character) {
    if (character > 0xffff)
        return false;
    const std::size_t size = table.number16(at + 6) & ~1U;
    const std::size_t lasts = at + 14;
    const std::size_t firsts = lasts + size + 2;
    for (std::size_t i = 0; i < size; i += 2) {
        if (character > table.number16(lasts + i))
            continue;
        const std::uint32_t first = table.number16(firsts + i);
        const std::uint32_t added = table.number16(firsts + size + i);
        const std::size_t place = firsts + 2 * size + i;
        const std::uint32_t offset = table.number16(place);
        if (character < first)
            return false;
        return offset == 0 ? ((character + added) & 0xffff) != 0
                           : table.number16(place + offset + std::size_t{2} * (character - first)) != 0;
    }
    return false;
}

} // namespace

bool fontShows(const std::string& path, char32_t character) {
    constexpr std::size_t entrySize = 8;
    std::ifstream file(path, std::ios::binary);
    const auto table = file ? characterTable(file) : std::nullopt;
    if (!table)
        return false;
    const std::size_t count = std::min<std::size_t>(table->number16(2), mostTables);
    for (std::size_t entry = 4; entry < 4 + count * entrySize; entry += entrySize) {
        const std::size_t at = table->number32(entry + 4);
        const std::uint32_t format = table->number16(at);
        if ((format == 12 && isInGroups(*table, at, character)) ||
            (format == 4 && isInSegments(*table, at, character)))
            return true;
    }
    return false;
}

} // namespace wardlock::cli
