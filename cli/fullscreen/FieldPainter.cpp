#include "cli/fullscreen/FieldPainter.h"

#include "cli/io/TextWidth.h"
#include "platform/base/Utf8.h"
#include "shell/screen/Row.h"

#include <algorithm>

namespace wardlock::cli {

namespace {

std::string shown(std::string_view text, bool hidden) {
    return hidden ? shell::shownText(shell::RowKind::SecureEditText, text) : printable(text);
}

/// Removes the first characters of the text, until it takes at most that many columns.
std::string lastColumns(std::string text, std::size_t columns) {
    while (columnsOf(text) > columns)
        text.erase(0, std::max<std::size_t>(platform::decodeUtf8(text, 0).length, 1));
    return text;
}

} // namespace

void drawField(Canvas& canvas, Point point, std::size_t columns, const TextEditor& editor, bool hidden) {
    canvas.fill({point, 1, columns}, Role::Field);
    if (columns == 0)
        return;
    // The caret needs a column of its own.
    const std::string before =
        lastColumns(shown(editor.text().substr(0, editor.caret()), hidden), columns - 1);
    const std::size_t used = columnsOf(before);
    const std::string after = truncated(shown(editor.text().substr(editor.caret()), hidden), columns - used);
    canvas.put(point, before + after, Role::Field);
    canvas.setCaret({point.line, point.column + used});
}

} // namespace wardlock::cli
