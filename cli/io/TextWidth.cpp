#include "cli/io/TextWidth.h"

#include "platform/base/Utf8.h"
#include "shell/screen/EscapedText.h"

#include <algorithm>
#include <array>

namespace wardlock::cli {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

/// Marks that stand on the character before, and characters that are not to be seen.
constexpr std::array zeroWide{
    Range{0x0300, 0x036F}, Range{0x0483, 0x0489}, Range{0x0591, 0x05BD},   Range{0x0610, 0x061A},
    Range{0x064B, 0x065F}, Range{0x06D6, 0x06DC}, Range{0x0900, 0x0902},   Range{0x093C, 0x093C},
    Range{0x0941, 0x0948}, Range{0x094D, 0x094D}, Range{0x0E31, 0x0E31},   Range{0x0E34, 0x0E3A},
    Range{0x0E47, 0x0E4E}, Range{0x1AB0, 0x1AFF}, Range{0x1DC0, 0x1DFF},   Range{0x200B, 0x200F},
    Range{0x202A, 0x202E}, Range{0x2060, 0x2064}, Range{0x20D0, 0x20F0},   Range{0xFE00, 0xFE0F},
    Range{0xFE20, 0xFE2F}, Range{0xFEFF, 0xFEFF}, Range{0x1F3FB, 0x1F3FF}, Range{0xE0100, 0xE01EF},
};

constexpr std::array doubleWide{
    Range{0x1100, 0x115F},   Range{0x231A, 0x231B},   Range{0x23E9, 0x23EC},   Range{0x25FD, 0x25FE},
    Range{0x2614, 0x2615},   Range{0x2648, 0x2653},   Range{0x26A1, 0x26A1},   Range{0x26BD, 0x26BE},
    Range{0x2705, 0x2705},   Range{0x2728, 0x2728},   Range{0x2753, 0x2755},   Range{0x2E80, 0x303E},
    Range{0x3041, 0x33FF},   Range{0x3400, 0x4DBF},   Range{0x4E00, 0x9FFF},   Range{0xA000, 0xA4CF},
    Range{0xAC00, 0xD7A3},   Range{0xF900, 0xFAFF},   Range{0xFE30, 0xFE6F},   Range{0xFF00, 0xFF60},
    Range{0xFFE0, 0xFFE6},   Range{0x1F1E6, 0x1F1FF}, Range{0x1F300, 0x1F64F}, Range{0x1F680, 0x1F6FF},
    Range{0x1F900, 0x1F9FF}, Range{0x20000, 0x3FFFD},
};

template <std::size_t Count>
bool holds(const std::array<Range, Count>& ranges, char32_t character) {
    const auto after = std::ranges::upper_bound(ranges, character, {}, &Range::first);
    return after != ranges.begin() && character <= (after - 1)->last;
}

bool isLineEnd(char32_t character) {
    return (character >= '\n' && character <= '\r') || character == 0x85 || character == 0x2028 ||
           character == 0x2029;
}

/// Bytes from the beginning that take at most `columns`.
std::size_t bytesWithin(std::string_view text, std::size_t columns) {
    std::size_t used = 0;
    std::size_t position = 0;
    while (position < text.size()) {
        const auto decoded = platform::decodeUtf8(text, position);
        used += columnsOf(decoded.character);
        if (used > columns)
            break;
        position += std::max<std::size_t>(decoded.length, 1);
    }
    return position;
}

void wrapParagraph(std::string_view text, std::size_t columns, std::vector<std::string>& lines) {
    const std::size_t before = lines.size();
    for (std::size_t end = bytesWithin(text, columns); end < text.size(); end = bytesWithin(text, columns)) {
        if (text[end] != ' ')
            if (const std::size_t blank = text.rfind(' ', end); blank != std::string_view::npos && blank > 0)
                end = blank;
        // A character that is wider than the line still has to go somewhere.
        if (end == 0)
            end = std::max<std::size_t>(platform::decodeUtf8(text, 0).length, 1);
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end);
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    }
    if (!text.empty() || lines.size() == before)
        lines.emplace_back(text);
}

} // namespace

std::size_t columnsOf(char32_t character) {
    if (character < 0x300)
        return 1;
    if (holds(zeroWide, character))
        return 0;
    return holds(doubleWide, character) ? 2 : 1;
}

std::size_t columnsOf(std::string_view text) {
    std::size_t columns = 0;
    for (std::size_t position = 0; position < text.size();) {
        const auto decoded = platform::decodeUtf8(text, position);
        columns += columnsOf(decoded.character);
        position += std::max<std::size_t>(decoded.length, 1);
    }
    return columns;
}

std::string printable(std::string_view text) {
    std::string line;
    for (std::size_t position = 0; position < text.size();) {
        if (text.substr(position).starts_with("\r\n"))
            ++position;
        const auto decoded = platform::decodeUtf8(text, position);
        const std::size_t length = std::max<std::size_t>(decoded.length, 1);
        if (decoded.length > 0 && (isLineEnd(decoded.character) || text[position] == '\t'))
            line += ' ';
        else
            line += shell::escaped(text.substr(position, length));
        position += length;
    }
    return line;
}

std::string truncated(std::string_view text, std::size_t columns) {
    if (columnsOf(text) <= columns)
        return std::string(text);
    if (columns == 0)
        return {};
    return std::string(text.substr(0, bytesWithin(text, columns - 1))) + "\u2026";
}

std::string padded(std::string text, std::size_t columns) {
    const std::size_t used = columnsOf(text);
    text.append(columns > used ? columns - used : 0, ' ');
    return text;
}

std::vector<std::string> wrapped(std::string_view text, std::size_t columns) {
    std::vector<std::string> lines;
    while (true) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const bool endsInReturn = end > 0 && text[end - 1] == '\r';
        wrapParagraph(printable(text.substr(0, end - endsInReturn)), std::max<std::size_t>(columns, 1),
                      lines);
        if (end == text.size())
            return lines;
        text.remove_prefix(end + 1);
    }
}

} // namespace wardlock::cli
