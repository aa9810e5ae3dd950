#pragma once

#include "shell/screen/Table.h"

#include <QAbstractListModel>
#include <QCache>

#include <memory>
#include <vector>

namespace wardlock::window {

struct TableEntry;

/// The rows of a page's table for a ListView. A row's cell is requested when the view requests the row, and
/// given back once enough others have been shown since: rows out of sight cost nothing. A filter leaves the
/// rows whose title or key contains its text.
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
    void setFilter(const QString& filter);
    void rowChanged(platform::NSIndexPath path);
    /// Returns the table's path of a row of this model.
    platform::NSIndexPath pathOf(int row) const;

private:
    struct Text {
        QString title;
        QString key;
    };

    std::shared_ptr<shell::TableRow> shown(platform::NSIndexPath path) const;
    TableEntry entry(int row) const;
    void readPlaces();
    /// Returns the number of rows before the section's first.
    std::size_t before(std::size_t section) const { return section == 0 ? 0 : ends_[section - 1]; }
    /// Returns the path of a row that is counted through all sections.
    platform::NSIndexPath pathAt(std::size_t place) const;
    bool passes(std::size_t place);

    std::shared_ptr<shell::Table> table_;
    QString filter_;
    /// The number of rows up to the end of each section.
    std::vector<std::size_t> ends_;
    /// The texts of every row, once a filter has been set.
    std::vector<Text> texts_;
    /// The rows that pass the filter; unused without one.
    std::vector<std::size_t> passing_;
    mutable QCache<quint64, std::shared_ptr<shell::TableRow>> shown_;
};

} // namespace wardlock::window
