#pragma once

#include "platform/ui/UITableView.h"
#include "shell/screen/PageBoundary.h"
#include "shell/screen/TableRow.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace wardlock::shell {

/// A page's table as a front end shows it: counts are cheap, and cells exist only for the rows that are being
/// shown. Main thread only.
class Table {
public:
    Table(std::shared_ptr<platform::UITableView> view, PageBoundary& boundary)
        : view_(std::move(view)), boundary_(boundary) {}

    const std::shared_ptr<platform::UITableView>& view() const { return view_; }
    std::size_t sectionCount();
    std::size_t rowCount(std::size_t section);
    bool has(platform::NSIndexPath path);
    /// In points.
    double rowHeight(platform::NSIndexPath path);
    /// Returns the row, which exists as long as the caller keeps it; callers that show the same row share it.
    /// Null when there is no such row.
    std::shared_ptr<TableRow> show(platform::NSIndexPath path);
    /// Returns the name of every row, section by section, for searching. Costs a cell for each row, one after
    /// another.
    std::vector<std::string> names();
    /// Returns the shown row whose cell the view is or is inside.
    std::optional<platform::NSIndexPath> shownRow(const platform::UIView& view);

private:
    struct Shown {
        platform::NSIndexPath path;
        /// The cell, for comparisons only.
        const platform::UIView* cell;
        std::weak_ptr<TableRow> row;
    };

    std::shared_ptr<platform::UITableView> view_;
    PageBoundary& boundary_;
    std::vector<Shown> shown_;
};

} // namespace wardlock::shell
