#pragma once

#include "platform/text/SearchFolding.h"
#include "shell/screen/Page.h"
#include "shell/search/RowIndex.h"
#include "window/models/RowEntry.h"

#include <QAbstractListModel>

#include <memory>
#include <vector>

namespace wardlock::window {

/// The sections and rows of a list page, one after another, for a ListView. Rows that stay keep their place
/// when the list is rebuilt, so that a view neither jumps nor flickers. A filter leaves only the rows whose
/// label contains all its words, with the headers of their sections. After them come the rows that were found
/// on pages below, as links with the names of the pages: "Siri", "Tom".
class RowsModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { EntryRole = Qt::UserRole };

    explicit RowsModel(std::shared_ptr<shell::Page> page);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// `below` are the rows that the filter finds on other pages. Also to be called when the list was
    /// rebuilt.
    void setFilter(platform::SearchWords words, std::vector<shell::FoundRow> below);
    /// Returns the row of another page that is shown at the path; null for a row of this page.
    const shell::FoundRow* found(platform::NSIndexPath path) const;
    /// Returns the place of a row in this model; -1 where it is not shown.
    int placeOf(platform::NSIndexPath path) const;
    void rowChanged(platform::NSIndexPath path);
    /// To be called when every value may look different, for example since another row is being edited.
    void allChanged();

private:
    struct Line {
        enum class Kind { Header, Row, Footer, Found };
        Kind kind;
        platform::NSIndexPath path;
        bool first = false;
        bool last = false;
        /// The line's identity across rebuilds of the list.
        std::string name;
        /// A row's place among the rows, from 1; 0 for a header or footer.
        int number = 0;

        bool isSame(const Line& other) const { return kind == other.kind && name == other.name; }
    };

    std::vector<Line> readLines() const;
    void readSection(std::size_t index, std::vector<Line>& lines) const;
    void addFound(std::vector<Line>& lines) const;
    RowEntry entryForFound(const Line& line) const;
    void replace(std::vector<Line> lines);
    RowEntry entry(const Line& line) const;
    int rowsShown() const;

    std::shared_ptr<shell::Page> page_;
    platform::SearchWords words_{{}};
    std::vector<shell::FoundRow> found_;
    /// The section of the found rows, behind all others.
    std::size_t foundSection_ = 0;
    std::vector<Line> lines_;
};

} // namespace wardlock::window
