#pragma once

#include "cli/fullscreen/Key.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace wardlock::cli {

/// The lines that a text is broken into, where each byte of it keeps its place: broken at line feeds and,
/// where possible, after blanks.
class TextLayout {
public:
    struct Line {
        std::size_t begin;
        /// Without the line feed.
        std::size_t end;
    };

    TextLayout(std::string_view text, std::size_t columns);

    const std::vector<Line>& lines() const { return lines_; }
    /// Returns the line and column of a byte.
    Point place(std::size_t position) const;
    /// Returns the byte nearest to that column of a line.
    std::size_t position(Point place) const;

private:
    void addParagraph(std::size_t begin, std::size_t end, std::size_t columns);

    std::string_view text_;
    std::vector<Line> lines_;
};

} // namespace wardlock::cli
