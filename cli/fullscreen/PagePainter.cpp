#include "cli/fullscreen/PagePainter.h"

#include "cli/fullscreen/LinkSpans.h"
#include "cli/fullscreen/RowPainter.h"
#include "cli/io/TextWidth.h"

#include <algorithm>

namespace wardlock::cli {

using Kind = PageLine::Kind;

void PagePainter::draw(const PageState& state) {
    drawTitle();
    for (std::size_t shown = 0; shown < layout_.body.lines; ++shown) {
        const std::size_t index = state.cursor.top() + shown;
        if (index < state.lines.size())
            drawLine(state, index,
                     {{layout_.body.start.line + shown, layout_.body.start.column}, 1, layout_.body.columns});
    }
    drawScrollBar(state);
}

void PagePainter::drawTitle() {
    const Area& bar = layout_.title;
    const std::string back = printable(screen_.backTitle());
    const std::string left =
        back.empty() ? "" : std::string(canvas_.glyphs().back) + ' ' + truncated(back, bar.columns / 3);
    const std::string right = screen_.page()->barButton() ? "+ Add" : "";
    const std::size_t sides = std::max(columnsOf(left), columnsOf(right)) + PageLayout::margin + 1;
    const std::size_t room = bar.columns - std::min(bar.columns, 2 * sides);
    canvas_.put({bar.start.line, bar.start.column + PageLayout::margin}, left, Role::Link);
    canvas_.putCentred({{bar.start.line, bar.start.column + sides}, 1, room}, screen_.page()->title(),
                       Role::Title);
    canvas_.putBefore({bar.start.line, bar.start.column + bar.columns - PageLayout::margin}, right,
                      Role::Link);
    canvas_.put({bar.start.line + 1, bar.start.column}, repeated(canvas_.glyphs().rule, bar.columns),
                Role::Faint);
}

void PagePainter::drawLine(const PageState& state, std::size_t index, const Area& line) {
    const PageLine& pageLine = state.lines[index];
    const Point start{line.start.line, line.start.column + PageLayout::margin};
    switch (pageLine.kind) {
    case Kind::Blank:
        return;
    case Kind::Header:
        return canvas_.put(start, truncated(printable(pageLine.text), layout_.textColumns()), Role::Title);
    case Kind::Footer:
    case Kind::Note:
        return canvas_.put(start, pageLine.text, Role::Faint);
    case Kind::Text:
        return drawText(pageLine.text, line, state.link);
    case Kind::Row:
    case Kind::TableRow:
        return drawRow(state, pageLine, line, index == state.cursor.line());
    }
}

void PagePainter::drawRow(const PageState& state, const PageLine& pageLine, const Area& line,
                          bool hasCursor) {
    shell::Page& page = *screen_.page();
    if (pageLine.kind == Kind::TableRow) {
        if (const auto row = page.table() ? page.table()->show(pageLine.path) : nullptr)
            RowPainter(canvas_, line, hasCursor).draw(*row);
        return;
    }
    if (!page.has(pageLine.path))
        return;
    const shell::Row row = page.row(pageLine.path);
    RowPainter(canvas_, line, hasCursor && !row.editing).draw(row, row.editing ? state.editor : nullptr);
}

void PagePainter::drawText(const std::string& text, const Area& line, std::size_t chosenLink) {
    const Point start{line.start.line, line.start.column + PageLayout::margin};
    canvas_.put(start, text, Role::Text);
    const auto web = screen_.page()->contentView<platform::UIWebView>();
    if (!web)
        return;
    for (const LinkSpan& span : linkSpans(text, web->links()))
        canvas_.put({start.line, start.column + columnsOf(std::string_view(text).substr(0, span.begin))},
                    text.substr(span.begin, span.end - span.begin),
                    span.number == chosenLink ? Role::Cursor : Role::Link);
}

void PagePainter::drawScrollBar(const PageState& state) {
    const std::size_t height = layout_.body.lines;
    const std::size_t all = state.lines.size();
    if (all <= height || height == 0)
        return;
    const std::size_t thumb = std::max<std::size_t>(height * height / all, 1);
    const std::size_t first = state.cursor.top() * (height - thumb) / (all - height);
    const std::size_t column = layout_.body.start.column + layout_.body.columns;
    for (std::size_t line = 0; line < height; ++line)
        canvas_.put({layout_.body.start.line + line, column},
                    line >= first && line < first + thumb ? canvas_.glyphs().thumb : canvas_.glyphs().track,
                    Role::Faint);
}

} // namespace wardlock::cli
