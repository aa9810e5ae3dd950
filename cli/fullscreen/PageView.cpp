#include "cli/fullscreen/PageView.h"

#include "cli/fullscreen/FieldPainter.h"
#include "cli/io/Refusal.h"
#include "cli/io/RowText.h"
#include "cli/io/TextWidth.h"

#include <algorithm>
#include <utility>

namespace wardlock::cli {

using shell::Row;
using shell::RowKind;

void PageView::draw() {
    update();
    state_.editor = editor_ ? &*editor_ : nullptr;
    PagePainter(canvas_, settings_.screen()).draw(state_);
    if (isFinding())
        drawFind(PageLayout(canvas_).status);
}

void PageView::drawFind(const Area& line) {
    const std::string prompt = "Find: ";
    const std::size_t count = state_.lines.rowCount();
    const std::string found =
        count == 0 ? "nothing" : std::to_string(count) + (count == 1 ? " row" : " rows");
    const Point start{line.start.line, line.start.column + PageLayout::margin};
    const std::size_t room = line.columns - std::min(line.columns, 2 * PageLayout::margin);
    const std::size_t around = columnsOf(prompt) + columnsOf(found) + 2;
    canvas_.put(start, prompt, Role::Title);
    canvas_.putBefore({start.line, start.column + room}, found, Role::Faint);
    if (room > around)
        drawField(canvas_, {start.line, start.column + columnsOf(prompt)}, room - around, *find_, false);
}

std::vector<Hint> PageView::hints() {
    const Glyphs& glyphs = canvas_.glyphs();
    if (editor_)
        return {{"Enter", "done", 0}, {"Ctrl+U", "clear", 1}};
    const auto row = cursorRow();
    const bool rows = state_.lines.hasRows();
    std::vector<Hint> hints{{std::string(glyphs.upDown), rows ? "move" : "scroll", 6}};
    if (row && row->kind == RowKind::Slider)
        hints.push_back({std::string(glyphs.leftRight), "change", 1});
    else if (rows)
        hints.push_back({"Space", row && row->isTextField() ? "edit" : "tap", 1});
    if (linkCount() > 0)
        hints.push_back(state_.link > 0 ? Hint{"Enter", "follow", 1} : Hint{"Tab", "links", 1});
    if (settings_.screen().pages().size() > 1)
        hints.push_back({"Esc", "back", 2});
    if (rows)
        hints.push_back({"/", "find", 4});
    if (page_->barButton())
        hints.push_back({"+", "add", 5});
    hints.push_back({"?", "help", 0});
    hints.push_back({"q", "quit", 3});
    return hints;
}

void PageView::forgetLines(Change change) {
    linesStand_ = false;
    mayHaveAddedRow_ = mayHaveAddedRow_ || change == Change::Own;
}

void PageView::update() {
    followPage();
    followEdit();
    const PageLayout layout(canvas_);
    if (!linesStand_ || columns_ != layout.textColumns()) {
        columns_ = layout.textColumns();
        readLines();
    }
    state_.cursor.fit(state_.lines, layout.body.lines);
    state_.link = std::min(state_.link, linkCount());
    rememberCursorRow();
}

void PageView::readLines() {
    const PageLines before =
        std::exchange(state_.lines, PageLines(*page_, columns_, find_ ? find_->text() : std::string()));
    linesStand_ = true;
    const auto added =
        std::exchange(mayHaveAddedRow_, false) && !find_ && page_->isList() ? addedRow(before) : std::nullopt;
    if (added)
        state_.cursor.moveTo(state_.lines, *added);
    else
        followCursorRow();
}

/// Returns the last row of the section that has one more than before; none where nothing else is the same.
std::optional<std::size_t> PageView::addedRow(const PageLines& before) const {
    if (!before.hasRows() || state_.lines.rowCount() != before.rowCount() + 1)
        return std::nullopt;
    for (std::size_t index = 0; index < state_.lines.size(); ++index)
        if (state_.lines[index].isRow() && !before.find(state_.lines[index].path))
            return index;
    return std::nullopt;
}

void PageView::followPage() {
    const auto& page = settings_.screen().page();
    if (page_ == page)
        return;
    std::erase_if(positions_, [&](const Position& known) {
        const auto other = known.first.lock();
        return !other || other == page_;
    });
    if (page_)
        positions_.emplace_back(page_, state_.cursor);
    page_ = page;
    state_ = {};
    for (const auto& [known, cursor] : positions_)
        if (known.lock() == page)
            state_.cursor = cursor;
    find_.reset();
    editor_.reset();
    pressed_.reset();
    cursorLabel_.clear();
    linesStand_ = false;
    mayHaveAddedRow_ = false;
}

/// The application knows what is being edited; another process may have ended that.
void PageView::followEdit() {
    const auto* edit = page_->edit();
    if (!edit)
        editor_.reset();
    else if (!editor_)
        editor_.emplace(edit->text);
}

void PageView::rememberCursorRow() {
    const auto row = cursorRow();
    cursorLabel_ = row ? rowLabel(*row) : std::string();
}

/// Rows that another process added or removed move the others.
void PageView::followCursorRow() {
    const auto row = cursorRow();
    if (cursorLabel_.empty() || (row && rowLabel(*row) == cursorLabel_))
        return;
    for (std::size_t index = 0; index < state_.lines.size(); ++index)
        if (const PageLine& line = state_.lines[index];
            line.kind == PageLine::Kind::Row && rowLabel(page_->row(line.path)) == cursorLabel_)
            return state_.cursor.moveTo(state_.lines, index);
}

std::optional<Row> PageView::cursorRow() {
    const std::size_t index = state_.cursor.line();
    if (index >= state_.lines.size() || state_.lines[index].kind != PageLine::Kind::Row ||
        !page_->has(state_.lines[index].path))
        return std::nullopt;
    return page_->row(state_.lines[index].path);
}

std::size_t PageView::linkCount() const {
    const auto web = page_->contentView<platform::UIWebView>();
    return web ? web->links().size() : 0;
}

void PageView::showRow(platform::NSIndexPath path) {
    update();
    if (const auto line = state_.lines.find(path)) {
        state_.cursor.moveTo(state_.lines, *line);
        rememberCursorRow();
    }
}

void PageView::report(const shell::InputResult& result) {
    message_ = refusalText(result);
}

bool PageView::handle(const Key& key) {
    message_.clear();
    update();
    if (key.kind == KeyKind::MousePress || key.kind == KeyKind::MouseRelease ||
        key.kind == KeyKind::WheelUp || key.kind == KeyKind::WheelDown)
        return handleMouse(key);
    if (editor_)
        return handleWhileEditing(key);
    if (find_)
        return handleWhileFinding(key);
    return handleMove(key) || handleLink(key) || handleSideways(key) || handleCommand(key);
}

bool PageView::handleWhileEditing(const Key& key) {
    switch (editor_->handle(key)) {
    case TextEditor::Outcome::Changed:
        report(settings_.page().typeText(editor_->text()));
        return true;
    case TextEditor::Outcome::Moved:
        return true;
    case TextEditor::Outcome::Ignored:
        break;
    }
    if (key.kind == KeyKind::Enter || key.kind == KeyKind::Escape) {
        settings_.page().endEditing();
    } else if (key.kind == KeyKind::Tab || key.kind == KeyKind::BackTab || key.kind == KeyKind::Up ||
               key.kind == KeyKind::Down || key.kind == KeyKind::PageUp || key.kind == KeyKind::PageDown) {
        settings_.page().endEditing();
        update();
        handleMove(key);
    }
    return true;
}

void PageView::beginFinding(const std::string& text) {
    if (!state_.lines.hasRows())
        return;
    find_.emplace(text);
    linesStand_ = text.empty();
}

void PageView::endFinding() {
    const std::size_t index = state_.cursor.line();
    const bool hadRow = index < state_.lines.size() && state_.lines[index].isRow();
    const auto path = hadRow ? state_.lines[index].path : platform::NSIndexPath{};
    find_.reset();
    state_.lines = PageLines(*page_, columns_, {});
    if (const auto line = state_.lines.find(path); hadRow && line)
        state_.cursor.moveTo(state_.lines, *line);
}

bool PageView::handleWhileFinding(const Key& key) {
    if (key.kind == KeyKind::Escape || (key.kind == KeyKind::Backspace && find_->text().empty())) {
        endFinding();
    } else if (key.kind == KeyKind::Enter) {
        // Several switches may be flipped in turn; anything else leads away.
        if (const auto row = cursorRow(); row && row->kind != RowKind::Switch)
            endFinding();
        tap();
    } else if (key.kind == KeyKind::Home || key.kind == KeyKind::End || !handleMove(key)) {
        if (find_->handle(key) == TextEditor::Outcome::Changed) {
            linesStand_ = false;
            cursorLabel_.clear();
            state_.cursor = {};
        }
    }
    return true;
}

} // namespace wardlock::cli
