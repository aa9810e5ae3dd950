#pragma once

#include "platform/text/SearchFolding.h"
#include "shell/screen/Table.h"

#include <QAbstractListModel>
#include <QCache>

#include <memory>
#include <string>
#include <vector>

namespace wardlock::window {

struct TableEntry;

/// The rows of a page's table for a ListView. A row's cell is requested when the view requests the row, and
/// given back once enough others have been shown since: rows out of sight cost nothing. A filter leaves the
/// rows whose name, as it is shown, contains all its words.
class TableModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { EntryRole = Qt::UserRole };

    explicit TableModel(std::shared_ptr<shell::Table> table);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Shows another table in place of the former one. The view stays where it is scrolled to.
    void follow(const std::shared_ptr<shell::Table>& table);
    /// Shows only the rows with all the words in their names; without words, every row.
    void setFilter(platform::SearchWords words);
    void rowChanged(platform::NSIndexPath path);
    /// Returns the table's path of a row of this model.
    platform::NSIndexPath pathOf(int row) const;

private:
    std::shared_ptr<shell::TableRow> shown(platform::NSIndexPath path) const;
    TableEntry entry(int row) const;
    void readPlaces();
    /// Returns the number of rows before the section's first.
    std::size_t before(std::size_t section) const { return section == 0 ? 0 : ends_[section - 1]; }
    /// Returns the path of a row that is counted through all sections.
    platform::NSIndexPath pathAt(std::size_t place) const;
    void readNames();

    std::shared_ptr<shell::Table> table_;
    platform::SearchWords words_{{}};
    /// The number of rows up to the end of each section.
    std::vector<std::size_t> ends_;
    /// The name of every row as it is searched, once a filter has been set.
    std::vector<std::string> names_;
    /// The rows that pass the filter; unused without one.
    std::vector<std::size_t> passing_;
    mutable QCache<quint64, std::shared_ptr<shell::TableRow>> shown_;
};

} // namespace wardlock::window
