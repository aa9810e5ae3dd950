#include "cli/fullscreen/TextLayout.h"

#include "cli/io/TextWidth.h"
#include "platform/base/Utf8.h"

#include <algorithm>

namespace wardlock::cli {

namespace {

std::size_t lengthAt(std::string_view text, std::size_t position) {
    return std::max<std::size_t>(platform::decodeUtf8(text, position).length, 1);
}

/// As it is shown: control characters take the columns of their escapes.
std::size_t shownColumns(std::string_view text) {
    return columnsOf(printable(text));
}

} // namespace

TextLayout::TextLayout(std::string_view text, std::size_t columns) : text_(text) {
    for (std::size_t begin = 0;;) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        addParagraph(begin, end, std::max<std::size_t>(columns, 1));
        if (end == text.size())
            return;
        begin = end + 1;
    }
}

void TextLayout::addParagraph(std::size_t begin, std::size_t end, std::size_t columns) {
    std::size_t used = 0;
    std::size_t afterBlank = begin;
    for (std::size_t position = begin; position < end;) {
        const std::size_t length = lengthAt(text_, position);
        const std::size_t width = shownColumns(text_.substr(position, length));
        if (used + width > columns && position > begin) {
            const std::size_t next = afterBlank > begin ? afterBlank : position;
            lines_.push_back({begin, next});
            begin = next;
            afterBlank = begin;
            used = shownColumns(text_.substr(begin, position - begin));
        }
        used += width;
        position += length;
        if (text_[position - 1] == ' ')
            afterBlank = position;
    }
    lines_.push_back({begin, end});
}

Point TextLayout::place(std::size_t position) const {
    std::size_t line = 0;
    while (line + 1 < lines_.size() && lines_[line + 1].begin <= position)
        ++line;
    const std::size_t end = std::min(position, lines_[line].end);
    return {line, shownColumns(text_.substr(lines_[line].begin, end - lines_[line].begin))};
}

std::size_t TextLayout::position(Point place) const {
    const Line& line = lines_[std::min(place.line, lines_.size() - 1)];
    // A broken line ends before the first character of the next.
    const bool isBroken = line.end < text_.size() && text_[line.end] != '\n' && line.end > line.begin;
    const std::size_t last = isBroken ? line.end - 1 : line.end;
    std::size_t used = 0;
    std::size_t position = line.begin;
    while (position < last) {
        const std::size_t length = lengthAt(text_, position);
        used += shownColumns(text_.substr(position, length));
        if (used > place.column)
            break;
        position += length;
    }
    return std::min(position, last);
}

} // namespace wardlock::cli
