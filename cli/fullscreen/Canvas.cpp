#include "cli/fullscreen/Canvas.h"

#include "cli/fullscreen/CursesLooks.h"
#include "cli/io/TextWidth.h"
#include "platform/base/Utf8.h"

#include <algorithm>
#include <array>
#include <utility>
// Last: it defines macros.
#define NCURSES_NOMACROS 1
#include <curses.h>

namespace wardlock::cli {

namespace {

struct Likeness {
    char32_t character;
    char sign;
};

/// Signs for characters that the pages and this front end use.
constexpr std::array likenesses{
    Likeness{U'\u2018', '\''}, Likeness{U'\u2019', '\''}, Likeness{U'\u201C', '"'}, Likeness{U'\u201D', '"'},
    Likeness{U'\u2013', '-'},  Likeness{U'\u2014', '-'},  Likeness{U'\u2026', '~'}, Likeness{U'\u2022', '*'},
    Likeness{U'\u203A', '>'},  Likeness{U'\u2039', '<'},  Likeness{U'\u2713', 'x'}, Likeness{U'\u00A0', ' '},
};

char signFor(char32_t character) {
    const auto found = std::ranges::find(likenesses, character, &Likeness::character);
    return found == likenesses.end() ? '?' : found->sign;
}

std::wstring wide(std::string_view text) {
    std::wstring result;
    for (std::size_t position = 0; position < text.size();) {
        const auto decoded = platform::decodeUtf8(text, position);
        result += static_cast<wchar_t>(decoded.length > 0 ? decoded.character : U'?');
        position += std::max<std::size_t>(decoded.length, 1);
    }
    return result;
}

} // namespace

std::string repeated(std::string_view text, std::size_t count) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

std::size_t Canvas::lines() const {
    return static_cast<std::size_t>(std::max(getmaxy(stdscr), 1));
}

std::size_t Canvas::columns() const {
    return static_cast<std::size_t>(std::max(getmaxx(stdscr), 1));
}

void Canvas::begin() {
    useLook(Role::Text);
    erase();
    caret_.reset();
}

std::string Canvas::ascii(std::string_view text) const {
    std::string result;
    for (std::size_t position = 0; position < text.size();) {
        const auto decoded = platform::decodeUtf8(text, position);
        if (decoded.length == 1)
            result += text[position];
        else
            result.append(columnsOf(decoded.character), signFor(decoded.character));
        position += std::max<std::size_t>(decoded.length, 1);
    }
    return result;
}

void Canvas::put(Point point, std::string_view text, Role role) {
    if (point.line >= lines() || point.column >= columns())
        return;
    const std::string shown = truncated(printable(text), columns() - point.column);
    useLook(role);
    mvaddwstr(static_cast<int>(point.line), static_cast<int>(point.column),
              wide(utf8_ ? shown : ascii(shown)).c_str());
}

void Canvas::putBefore(Point end, std::string_view text, Role role) {
    const std::size_t width = columnsOf(printable(text));
    put({end.line, end.column - std::min(end.column, width)}, text, role);
}

void Canvas::putCentred(const Area& line, std::string_view text, Role role) {
    const std::string shown = truncated(printable(text), line.columns);
    put({line.start.line, line.start.column + (line.columns - columnsOf(shown)) / 2}, shown, role);
}

void Canvas::fill(const Area& area, Role role) {
    for (std::size_t line = 0; line < area.lines; ++line)
        put({area.start.line + line, area.start.column}, std::string(area.columns, ' '), role);
}

void Canvas::frame(const Area& area, Role role) {
    if (area.lines < 2 || area.columns < 2)
        return;
    fill(area, Role::Text);
    const std::string rule = repeated(glyphs_.rule, area.columns - 2);
    const auto [line, column] = area.start;
    put(area.start, std::string(glyphs_.topLeft) + rule + std::string(glyphs_.topRight), role);
    for (std::size_t inner = 1; inner + 1 < area.lines; ++inner) {
        put({line + inner, column}, glyphs_.side, role);
        put({line + inner, column + area.columns - 1}, glyphs_.side, role);
    }
    put({line + area.lines - 1, column},
        std::string(glyphs_.bottomLeft) + rule + std::string(glyphs_.bottomRight), role);
}

void Canvas::end() {
    if (caret_) {
        move(static_cast<int>(std::min(caret_->line, lines() - 1)),
             static_cast<int>(std::min(caret_->column, columns() - 1)));
    } else {
        move(static_cast<int>(lines()) - 1, 0);
    }
    curs_set(caret_ ? 1 : 0);
    refresh();
}

} // namespace wardlock::cli
