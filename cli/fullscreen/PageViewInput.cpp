#include "cli/fullscreen/LinkSpans.h"
#include "cli/fullscreen/PageView.h"
#include "cli/fullscreen/RowPainter.h"
#include "cli/io/Refusal.h"
#include "cli/io/TextWidth.h"

#include <algorithm>
#include <utility>

namespace wardlock::cli {

using shell::RowKind;

namespace {

/// As in the window: a twentieth of the slider's range.
constexpr double sliderStep = 0.05;
constexpr std::ptrdiff_t wheelLines = 3;

/// A letter typed by mistake can take a change back, so that is always reported.
std::string undoText(const shell::InputResult& result, const char* done) {
    return result ? done : refusalText(result);
}

} // namespace

bool PageView::handleMove(const Key& key) {
    ListCursor& cursor = state_.cursor;
    const PageLines& lines = state_.lines;
    const bool letters = !find_ && !editor_;
    const bool rows = lines.hasRows();
    if (key.kind == KeyKind::Up || (letters && key.is('k')) || (rows && key.kind == KeyKind::BackTab))
        cursor.up(lines);
    else if (key.kind == KeyKind::Down || (letters && key.is('j')) || (rows && key.kind == KeyKind::Tab))
        cursor.down(lines);
    else if (key.kind == KeyKind::PageUp)
        cursor.pageUp(lines);
    else if (key.kind == KeyKind::PageDown)
        cursor.pageDown(lines);
    else if (key.kind == KeyKind::Home || (letters && key.is('g')))
        cursor.home(lines);
    else if (key.kind == KeyKind::End || (letters && key.is('G')))
        cursor.end(lines);
    else
        return false;
    return true;
}

bool PageView::handleLink(const Key& key) {
    if (linkCount() == 0)
        return false;
    if (key.kind == KeyKind::Tab || key.kind == KeyKind::BackTab)
        chooseLink(key.kind == KeyKind::Tab);
    else if (state_.link > 0 && (key.kind == KeyKind::Enter || key.is(' ')))
        report(settings_.page().followLink(state_.link));
    else
        return false;
    return true;
}

/// Chooses the next link, from the part that is shown on, and shows it.
void PageView::chooseLink(bool forward) {
    const auto web = page_->contentView<platform::UIWebView>();
    const std::size_t height = PageLayout(canvas_).body.lines;
    std::size_t chosen = 0;
    std::size_t chosenLine = 0;
    for (std::size_t index = 0; index < state_.lines.size(); ++index)
        for (const LinkSpan& span : linkSpans(state_.lines[index].text, web->links())) {
            const bool wanted = state_.link == 0 ? index >= state_.cursor.top()
                                : forward        ? span.number > state_.link
                                                 : span.number < state_.link;
            if (wanted && (chosen == 0 || (forward ? span.number < chosen : span.number > chosen))) {
                chosen = span.number;
                chosenLine = index;
            }
        }
    if (chosen == 0)
        return;
    state_.link = chosen;
    const auto top = static_cast<std::ptrdiff_t>(state_.cursor.top());
    const auto line = static_cast<std::ptrdiff_t>(chosenLine);
    if (line < top)
        state_.cursor.scroll(state_.lines, line - top);
    else if (line >= top + static_cast<std::ptrdiff_t>(height))
        state_.cursor.scroll(state_.lines, line - top - static_cast<std::ptrdiff_t>(height) + 1);
}

bool PageView::handleSideways(const Key& key) {
    const bool right = key.kind == KeyKind::Right || key.is('l');
    const bool left = key.kind == KeyKind::Left || key.is('h');
    if (!left && !right)
        return false;
    if (moveSlider(right ? 1 : -1))
        return true;
    const auto row = cursorRow();
    if (left)
        back();
    else if (row && (row->kind == RowKind::Link || row->kind == RowKind::LinkList))
        tap();
    return true;
}

bool PageView::handleCommand(const Key& key) {
    if (key.kind == KeyKind::Enter || key.is(' '))
        state_.lines.hasRows() ? tap() : state_.cursor.pageDown(state_.lines);
    else if (key.kind == KeyKind::Escape || key.kind == KeyKind::Backspace)
        back();
    else if (key.is('+'))
        report(settings_.page().tapBarButton());
    else if (key.is('/') || key.isControl('f'))
        beginFinding({});
    else if (key.is('u'))
        message_ = undoText(settings_.history().undo(), "Your last change was taken back.");
    else if (key.isControl('r'))
        message_ = undoText(settings_.history().redo(), "The change was made again.");
    else if (key.isText() && !key.is('q') && !key.is('?'))
        beginFinding(key.text);
    else
        return false;
    return true;
}

void PageView::back() {
    if (settings_.screen().pages().size() < 2)
        message_ = "This is the first page; q quits.";
    else
        report(settings_.page().goBack());
}

void PageView::tap() {
    const std::size_t index = state_.cursor.line();
    if (index >= state_.lines.size() || !state_.lines[index].isRow())
        return;
    const auto path = state_.lines[index].path;
    const auto row = cursorRow();
    if (row && row->kind == RowKind::Slider)
        message_ = "Left and Right move the slider.";
    else
        report(page_->isList() ? settings_.page().tapRow(path) : settings_.page().flipTableSwitch(path));
}

bool PageView::moveSlider(int steps) {
    const auto row = cursorRow();
    if (!row || row->kind != RowKind::Slider)
        return false;
    const double step = (row->max - row->min) * sliderStep;
    report(settings_.page().moveSlider(state_.lines[state_.cursor.line()].path,
                                       std::clamp(row->position() + steps * step, row->min, row->max)));
    return true;
}

std::optional<std::size_t> PageView::lineAt(Point point) const {
    const Area body = PageLayout(canvas_).body;
    const std::size_t index = point.line - body.start.line + state_.cursor.top();
    return body.contains(point) && index < state_.lines.size() ? std::optional(index) : std::nullopt;
}

bool PageView::handleMouse(const Key& key) {
    if (key.kind == KeyKind::WheelUp || key.kind == KeyKind::WheelDown)
        wheel(key.kind == KeyKind::WheelUp ? -wheelLines : wheelLines);
    else if (key.kind == KeyKind::MousePress)
        press(key.point);
    else
        release(key.point);
    return true;
}

void PageView::press(Point point) {
    pressed_ = Press{point, lineAt(point)};
    // What is being typed ends with the release, on another row.
    if (pressed_->line && state_.lines[*pressed_->line].isRow() && !editor_)
        state_.cursor.moveTo(state_.lines, *pressed_->line);
}

/// A press that was moved to another line is none.
void PageView::release(Point point) {
    const auto pressed = std::exchange(pressed_, std::nullopt);
    if (!pressed || pressed->point.line != point.line)
        return;
    if (PageLayout(canvas_).title.contains(point))
        tapTitle(point.column);
    else if (pressed->line && *pressed->line < state_.lines.size())
        tapLine(*pressed->line, point.column);
}

/// A list is dragged: its page may end the editing then.
void PageView::wheel(std::ptrdiff_t lines) {
    if (page_->isList() && page_->edit())
        report(settings_.page().dragList());
    state_.cursor.scroll(state_.lines, lines);
}

void PageView::tapTitle(std::size_t column) {
    const Area title = PageLayout(canvas_).title;
    const std::size_t inside = column - title.start.column;
    if (inside < title.columns / 3)
        back();
    else if (inside >= title.columns - title.columns / 5)
        report(settings_.page().tapBarButton());
}

void PageView::tapLine(std::size_t index, std::size_t column) {
    const PageLine line = state_.lines[index];
    if (!line.isRow())
        return followLinkAt(line.text, column);
    state_.cursor.moveTo(state_.lines, index);
    const auto row = cursorRow();
    if (!row || row->kind != RowKind::Slider)
        return tap();
    const Area body = PageLayout(canvas_).body;
    const RowPainter painter(canvas_, {body.start, 1, body.columns}, false);
    if (const auto value = painter.sliderValueAt(*row, column))
        report(settings_.page().moveSlider(line.path, *value));
}

void PageView::followLinkAt(const std::string& text, std::size_t column) {
    const auto web = page_->contentView<platform::UIWebView>();
    const std::size_t start = PageLayout(canvas_).body.start.column + PageLayout::margin;
    if (!web)
        return;
    for (const LinkSpan& span : linkSpans(text, web->links())) {
        const std::size_t begin = start + columnsOf(std::string_view(text).substr(0, span.begin));
        const std::size_t end = start + columnsOf(std::string_view(text).substr(0, span.end));
        if (column >= begin && column < end)
            return report(settings_.page().followLink(span.number));
    }
}

} // namespace wardlock::cli
