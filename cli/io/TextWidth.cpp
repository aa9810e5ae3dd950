#include "cli/io/TextWidth.h"

#include "platform/base/Utf8.h"
#include "shell/screen/EscapedText.h"

#include <algorithm>
#include <locale.h>
#include <wchar.h>

namespace wardlock::cli {

namespace {

/// The C library knows widths in locales of UTF-8 only; the one that it has built in serves for this alone.
int widthInUtf8(char32_t character) {
    static const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (!utf8)
        return -1;
    const locale_t before = uselocale(utf8);
    const int width = wcwidth(static_cast<wchar_t>(character));
    uselocale(before);
    return width;
}

bool isLineEnd(char32_t character) {
    return (character >= '\n' && character <= '\r') || character == 0x85 || character == 0x2028 ||
           character == 0x2029;
}

/// Returns how many of the first bytes take at most `columns`.
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
        // A character that is wider than the line gets a line of its own.
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
    // One for what the library does not know.
    const int width = character < 0x300 ? 1 : widthInUtf8(character);
    return width < 0 ? 1 : static_cast<std::size_t>(width);
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
