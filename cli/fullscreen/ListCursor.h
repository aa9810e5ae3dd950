#pragma once

#include "cli/fullscreen/PageLines.h"

#include <cstddef>

namespace wardlock::cli {

/// The row that the next key applies to, and the part of a page that is shown. A page without rows only
/// scrolls.
class ListCursor {
public:
    /// The line with the cursor; of no meaning on a page without rows.
    std::size_t line() const { return line_; }
    /// The first line that is shown.
    std::size_t top() const { return top_; }

    /// To be called before every use: the lines, or the number of them that fit, may have changed.
    void fit(const PageLines& lines, std::size_t height);
    void moveTo(const PageLines& lines, std::size_t line);

    void up(const PageLines& lines);
    void down(const PageLines& lines);
    void pageUp(const PageLines& lines);
    void pageDown(const PageLines& lines);
    void home(const PageLines& lines);
    void end(const PageLines& lines);
    /// Shows what is above (below 0) or below, and keeps the cursor on a row that is shown.
    void scroll(const PageLines& lines, std::ptrdiff_t count);

private:
    /// Shows the cursor with the header above it and the footer below it.
    void show(const PageLines& lines);
    void keepCursorShown(const PageLines& lines);
    std::size_t lastTop(const PageLines& lines) const;

    std::size_t line_ = 0;
    std::size_t top_ = 0;
    std::size_t height_ = 1;
};

} // namespace wardlock::cli
