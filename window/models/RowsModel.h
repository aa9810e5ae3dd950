#pragma once

#include "shell/screen/Page.h"
#include "window/models/RowEntry.h"

#include <QAbstractListModel>

#include <memory>
#include <vector>

namespace wardlock::window {

/// The sections and rows of a list page, one after another, for a ListView. Rows that stay keep their place
/// when the list is rebuilt, so that a view neither jumps nor flickers. A filter leaves only the rows whose
/// label contains its text, with the headers of their sections.
class RowsModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { EntryRole = Qt::UserRole };

    explicit RowsModel(std::shared_ptr<shell::Page> page);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    void setFilter(const QString& filter);
    /// To be called after the list was rebuilt.
    void reset();
    void rowChanged(platform::NSIndexPath path);
    /// To be called when every value may look different, for example since another row is being edited.
    void allChanged();

private:
    struct Line {
        enum class Kind { Header, Row, Footer };
        Kind kind;
        platform::NSIndexPath path;
        bool first = false;
        bool last = false;
        /// The line's identity across rebuilds of the list.
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
