#pragma once

#include "cli/terminal/TextStyle.h"
#include "platform/ui/NSIndexPath.h"
#include "shell/screen/Screen.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wardlock::cli {

/// A page as text: its title, its rows with numbers, its texts; as wide as the terminal. It contains as many
/// rows of a table as the terminal has lines for, from `firstTableRow` on.
class TextPage {
public:
    struct Size {
        std::size_t columns;
        std::size_t lines;
        bool operator==(const Size&) const = default;
    };

    TextPage(shell::Screen& screen, TextStyle style, Size size, std::size_t firstTableRow);

    const std::string& text() const { return text_; }
    /// Returns the rows by their numbers; the first has the number 1.
    const std::vector<platform::NSIndexPath>& rows() const { return rows_; }
    /// Returns the number of table rows shown, and of all; 0 for a page without a table.
    std::size_t tableRowsShown() const { return tableRowsShown_; }
    std::size_t tableRowCount() const { return tableRowCount_; }

private:
    void addTitle(shell::Screen& screen);
    void addList(shell::Page& page);
    void addSection(shell::Page& page, std::size_t index);
    void addTable(shell::Table& table, std::size_t first);
    void addContent(shell::Page& page, std::size_t firstTableRow);
    void addRow(platform::NSIndexPath path, const std::string& label, const std::string& value,
                const std::string& styledValue, bool enabled);
    void addParagraph(const std::string& text, std::size_t indent, bool dim);
    void addLine(const std::string& line = {}) { text_ += line + '\n'; }

    TextStyle style_;
    Size size_;
    std::string text_;
    std::vector<platform::NSIndexPath> rows_;
    std::size_t tableRowsShown_ = 0;
    std::size_t tableRowCount_ = 0;
};

} // namespace wardlock::cli
