#pragma once

#include "cli/fullscreen/ListCursor.h"
#include "cli/fullscreen/PageLayout.h"
#include "cli/fullscreen/TextEditor.h"
#include "shell/screen/Screen.h"

#include <cstddef>
#include <string>

namespace wardlock::cli {

/// What of a page's looks belongs to this front end.
struct PageState {
    PageLines lines;
    ListCursor cursor;
    /// The row that is being edited, and its text; null for none.
    const TextEditor* editor = nullptr;
    /// The link that Enter follows; 0 for none.
    std::size_t link = 0;
};

/// Draws a page: its title, its lines, and how much of it there is.
class PagePainter {
public:
    PagePainter(Canvas& canvas, shell::Screen& screen) : canvas_(canvas), screen_(screen), layout_(canvas) {}

    void draw(const PageState& state);

private:
    void drawTitle();
    void drawLine(const PageState& state, std::size_t index, const Area& line);
    void drawRow(const PageState& state, const PageLine& pageLine, const Area& line, bool hasCursor);
    void drawText(const std::string& text, const Area& line, std::size_t chosenLink);
    void drawScrollBar(const PageState& state);

    Canvas& canvas_;
    shell::Screen& screen_;
    PageLayout layout_;
};

} // namespace wardlock::cli
