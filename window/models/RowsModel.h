#pragma once

#include "shell/screen/Page.h"
#include "window/models/RowEntry.h"

#include <QAbstractListModel>

#include <memory>
#include <vector>

namespace wardlock::window {

/// The sections and rows of a list page, one after another, as a ListView wants them. Rows that stay keep
/// their place when the list is built anew, so that a view neither jumps nor flickers. A filter leaves only
/// the rows whose label holds its text, with the headers of their sections.
class RowsModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { EntryRole = Qt::UserRole };

    explicit RowsModel(std::shared_ptr<shell::Page> page);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    void setFilter(const QString& filter);
    /// The list was built anew.
    void reset();
    void rowChanged(platform::NSIndexPath path);
    /// Values may look different everywhere, for example since another row is being edited.
    void allChanged();

private:
    struct Line {
        enum class Kind { Header, Row, Footer };
        Kind kind;
        platform::NSIndexPath path;
        bool first = false;
        bool last = false;
        /// What makes a line the same one after the list was built anew.
        std::string name;

        bool isSame(const Line& other) const { return kind == other.kind && name == other.name; }
    };

    std::vector<Line> readLines() const;
    void readSection(std::size_t index, std::vector<Line>& lines) const;
    bool passes(const std::string& label) const;
    void replace(std::vector<Line> lines);
    RowEntry entry(const Line& line) const;

    std::shared_ptr<shell::Page> page_;
    QString filter_;
    std::vector<Line> lines_;
};

} // namespace wardlock::window
