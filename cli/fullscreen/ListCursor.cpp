#include "cli/fullscreen/ListCursor.h"

#include <algorithm>

namespace wardlock::cli {

std::size_t ListCursor::lastTop(const PageLines& lines) const {
    return lines.size() - std::min(lines.size(), height_);
}

void ListCursor::fit(const PageLines& lines, std::size_t height) {
    const bool resized = height_ != std::max<std::size_t>(height, 1);
    height_ = std::max<std::size_t>(height, 1);
    top_ = std::min(top_, lastTop(lines));
    const auto row = lines.rowNear(line_);
    if (row && (*row != line_ || resized)) {
        line_ = *row;
        show(lines);
    }
}

void ListCursor::moveTo(const PageLines& lines, std::size_t line) {
    line_ = lines.rowNear(line).value_or(0);
    show(lines);
}

void ListCursor::show(const PageLines& lines) {
    std::size_t first = line_;
    while (first > 0 && !lines[first - 1].isRow())
        --first;
    std::size_t last = line_;
    while (last + 1 < lines.size() && !lines[last + 1].isRow())
        ++last;
    // The blank line and the header of the next section say nothing about this row.
    while (last > line_ && lines[last].kind != PageLine::Kind::Footer)
        --last;
    if (last >= top_ + height_)
        top_ = last + 1 - height_;
    if (first < top_)
        top_ = first;
    if (line_ >= top_ + height_)
        top_ = line_ + 1 - height_;
    top_ = std::min(top_, lastTop(lines));
}

void ListCursor::up(const PageLines& lines) {
    const auto row = lines.hasRows() ? lines.rowBefore(line_) : std::nullopt;
    if (row && line_ - *row < height_)
        moveTo(lines, *row);
    else
        top_ -= std::min<std::size_t>(top_, 1);
    if (row && *row >= top_)
        line_ = *row;
}

void ListCursor::down(const PageLines& lines) {
    const auto row = lines.hasRows() ? lines.rowAfter(line_) : std::nullopt;
    if (row && *row - line_ < height_)
        moveTo(lines, *row);
    else
        top_ = std::min(top_ + 1, lastTop(lines));
    if (row && *row < top_ + height_)
        line_ = *row;
}

void ListCursor::pageUp(const PageLines& lines) {
    if (top_ == 0)
        return home(lines);
    scroll(lines, -static_cast<std::ptrdiff_t>(std::max<std::size_t>(height_ - 1, 1)));
}

void ListCursor::pageDown(const PageLines& lines) {
    if (top_ == lastTop(lines))
        return end(lines);
    scroll(lines, static_cast<std::ptrdiff_t>(std::max<std::size_t>(height_ - 1, 1)));
}

void ListCursor::home(const PageLines& lines) {
    line_ = lines.rowNear(0).value_or(0);
    top_ = 0;
}

void ListCursor::end(const PageLines& lines) {
    line_ = lines.rowBefore(lines.size()).value_or(0);
    top_ = lastTop(lines);
}

void ListCursor::scroll(const PageLines& lines, std::ptrdiff_t count) {
    if (count < 0)
        top_ -= std::min(top_, static_cast<std::size_t>(-count));
    else
        top_ = std::min(top_ + static_cast<std::size_t>(count), lastTop(lines));
    keepCursorShown(lines);
}

void ListCursor::keepCursorShown(const PageLines& lines) {
    if (!lines.hasRows())
        return;
    if (line_ < top_) {
        const auto row = lines.rowNear(top_);
        if (row && *row < top_ + height_)
            line_ = std::max(*row, top_);
    } else if (line_ >= top_ + height_) {
        if (const auto row = lines.rowBefore(top_ + height_); row && *row >= top_)
            line_ = *row;
    }
}

} // namespace wardlock::cli
