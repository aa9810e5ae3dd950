#pragma once

#include "cli/fullscreen/Canvas.h"

#include <algorithm>
#include <cstddef>

namespace wardlock::cli {

/// Where the parts of a page are on the screen. Its columns are in the middle of a wide terminal, since
/// longer lines are hard to read.
struct PageLayout {
    static constexpr std::size_t widest = 100;
    /// Blanks on each side of a text.
    static constexpr std::size_t margin = 2;

    /// The line with the title, the way back and the button.
    Area title;
    /// What scrolls; the column to its right is the scroll bar's.
    Area body;
    /// Hints, the search, and what was refused.
    Area status;

    explicit PageLayout(const Canvas& canvas) {
        const std::size_t columns = std::min(canvas.columns(), widest);
        const std::size_t left = (canvas.columns() - columns) / 2;
        const std::size_t lines = canvas.lines();
        title = {{0, left}, 1, columns};
        body = {{2, left}, lines - std::min<std::size_t>(lines, 3), columns - 1};
        status = {{lines - 1, left}, 1, columns};
    }

    std::size_t textColumns() const {
        return std::max<std::size_t>(body.columns, 2 * margin + 1) - 2 * margin;
    }
};

} // namespace wardlock::cli
