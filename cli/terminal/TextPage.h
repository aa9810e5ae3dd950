#pragma once

#include "cli/terminal/TextStyle.h"
#include "platform/ui/NSIndexPath.h"
#include "shell/screen/Screen.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace wardlock::cli {

/// A page as text: its title, its rows with numbers, its texts; as wide as the terminal. Where it is longer
/// than the terminal, it is the part from `first` on: a row of a table, or else a line.
class TextPage {
public:
    struct Size {
        std::size_t columns;
        /// None for a page as a whole, as a pipe or a file gets it.
        std::optional<std::size_t> lines;
        bool operator==(const Size&) const = default;
    };

    TextPage(shell::Screen& screen, TextStyle style, Size size, std::size_t first);

    const std::string& text() const { return text_; }
    /// Returns the rows by their numbers; the first has the number 1. Of a list they are all rows, of a table
    /// those that are shown.
    const std::vector<platform::NSIndexPath>& rows() const { return rows_; }
    /// Returns how many table rows or lines are shown, and how many there are.
    std::size_t shownCount() const { return shownCount_; }
    std::size_t count() const { return count_; }
    /// Returns how many fit at most.
    std::size_t most() const { return size_.lines ? height() : count_; }

private:
    void addTitle(shell::Screen& screen);
    void addList(shell::Page& page);
    void addSection(shell::Page& page, std::size_t index);
    void addTable(shell::Table& table, std::size_t first);
    void addContent(shell::Page& page);
    void addRow(platform::NSIndexPath path, const std::string& label, const std::string& value,
                const std::string& styledValue, bool enabled);
    void addParagraph(const std::string& text, std::size_t indent, bool dim);
    void addLine(std::string line = {}) { lines_.push_back(std::move(line)); }
    /// Adds the lines from `first` on that fit to the text.
    void addPart(std::size_t first);
    void addPosition(const std::string& what, std::size_t first);
    std::size_t height() const;

    TextStyle style_;
    Size size_;
    std::string text_;
    /// The lines below the title.
    std::vector<std::string> lines_;
    std::vector<platform::NSIndexPath> rows_;
    std::size_t shownCount_ = 0;
    std::size_t count_ = 0;
};

} // namespace wardlock::cli
