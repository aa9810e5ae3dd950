#pragma once

#include "platform/ui/NSIndexPath.h"
#include "shell/screen/Page.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace wardlock::cli {

/// A line of a page below its title.
struct PageLine {
    enum class Kind {
        Blank,
        Header,
        Footer,
        Row,
        /// A row of a table, whose cell exists only while it is drawn.
        TableRow,
        /// A text of the page itself.
        Text,
        /// An address, or that the page is being loaded.
        Note
    };

    Kind kind = Kind::Blank;
    platform::NSIndexPath path = {};
    std::string text = {};

    bool isRow() const { return kind == Kind::Row || kind == Kind::TableRow; }
};

/// All lines of a page, as wide as the screen. Rows are read when they are drawn.
class PageLines {
public:
    PageLines() = default;
    /// With a `filter`, only the rows whose names contain it, in any case.
    PageLines(shell::Page& page, std::size_t columns, const std::string& filter);

    std::size_t size() const { return lines_.size(); }
    const PageLine& operator[](std::size_t index) const { return lines_[index]; }
    bool hasRows() const { return rowCount_ > 0; }
    std::size_t rowCount() const { return rowCount_; }

    std::optional<std::size_t> find(platform::NSIndexPath path) const;
    std::optional<std::size_t> rowAfter(std::size_t index) const;
    std::optional<std::size_t> rowBefore(std::size_t index) const;
    /// Returns the row nearest to the line; none where there are no rows.
    std::optional<std::size_t> rowNear(std::size_t index) const;

private:
    void addList(shell::Page& page, std::size_t columns, const std::string& filter);
    void addTable(shell::Table& table, const std::string& filter);
    void addContent(shell::Page& page, std::size_t columns);
    void addText(PageLine::Kind kind, const std::string& text, std::size_t columns);
    void addRow(PageLine::Kind kind, platform::NSIndexPath path);

    std::vector<PageLine> lines_;
    std::size_t rowCount_ = 0;
};

} // namespace wardlock::cli
