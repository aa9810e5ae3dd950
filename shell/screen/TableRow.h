#pragma once

#include "platform/ui/NSIndexPath.h"
#include "platform/ui/UIImage.h"
#include "platform/ui/UISwitch.h"
#include "platform/ui/UITableView.h"
#include "shell/screen/PageBoundary.h"

#include <memory>
#include <string>

namespace wardlock::shell {

/// A row of a table that is being shown: keeps its cell, and gives it back to the table when destroyed.
class TableRow {
public:
    TableRow(std::shared_ptr<platform::UITableView> table, platform::NSIndexPath path,
             std::shared_ptr<platform::UITableViewCell> cell)
        : table_(std::move(table)), path_(path), cell_(std::move(cell)) {}
    ~TableRow() { table_->giveBack(cell_); }
    TableRow(const TableRow&) = delete;
    TableRow& operator=(const TableRow&) = delete;

    platform::NSIndexPath path() const { return path_; }
    const std::string& title() const { return cell_->textLabel().text(); }
    /// Empty while its label is hidden.
    std::string detail() const;
    /// The detail label's text, shown or not, by which the row is addressed.
    const std::string& key() const { return cell_->detailTextLabel().text(); }
    /// What a user is shown as the row's name: the title, or the key where it has none.
    const std::string& name() const { return title().empty() ? key() : title(); }
    const std::shared_ptr<platform::UIImage>& icon() const { return cell_->image(); }
    /// The row's switch; null where it has none.
    std::shared_ptr<platform::UISwitch> switchControl() const;
    bool isOn() const;

private:
    std::shared_ptr<platform::UITableView> table_;
    platform::NSIndexPath path_;
    std::shared_ptr<platform::UITableViewCell> cell_;
};

} // namespace wardlock::shell
