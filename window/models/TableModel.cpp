#include "window/models/TableModel.h"

#include "window/items/TableEntry.h"
#include "window/models/Text.h"
#include "window/pictures/PictureSource.h"

#include <algorithm>

namespace wardlock::window {

using platform::NSIndexPath;

namespace {

/// More rows than any window shows at a time.
constexpr int rowsHeld = 160;

quint64 number(NSIndexPath path) {
    return quint64(path.section) << 40 | path.row;
}

} // namespace

TableModel::TableModel(std::shared_ptr<shell::Table> table) : table_(std::move(table)), shown_(rowsHeld) {
    readPlaces();
}

void TableModel::readPlaces() {
    std::size_t count = 0;
    for (std::size_t section = 0, sections = table_->sectionCount(); section < sections; ++section)
        ends_.push_back(count += table_->rowCount(section));
}

NSIndexPath TableModel::pathAt(std::size_t place) const {
    const auto section = static_cast<std::size_t>(std::ranges::upper_bound(ends_, place) - ends_.begin());
    return {section, place - before(section)};
}

int TableModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid())
        return 0;
    const std::size_t all = ends_.empty() ? 0 : ends_.back();
    return static_cast<int>(words_.empty() ? all : passing_.size());
}

NSIndexPath TableModel::pathOf(int row) const {
    const auto place = static_cast<std::size_t>(row);
    return pathAt(words_.empty() ? place : passing_[place]);
}

std::shared_ptr<shell::TableRow> TableModel::shown(NSIndexPath path) const {
    if (auto* held = shown_.object(number(path)))
        return *held;
    auto row = table_->show(path);
    shown_.insert(number(path), new std::shared_ptr<shell::TableRow>(row));
    return row;
}

TableEntry TableModel::entry(int row) const {
    const NSIndexPath path = pathOf(row);
    TableEntry entry;
    entry.height = table_->rowHeight(path);
    entry.row = row;
    entry.count = rowCount();
    entry.place = {row == 0, row + 1 == entry.count};
    const auto shownRow = shown(path);
    if (!shownRow)
        return entry;
    entry.title = shownName(shownRow->name());
    entry.nameless = shownRow->title().empty();
    entry.key = toQt(shownRow->key());
    entry.icon = PictureSource::urlFor(shownRow->icon());
    entry.on = shownRow->isOn();
    entry.hasSwitch = shownRow->switchControl() != nullptr;
    return entry;
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
    if (role != EntryRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    return QVariant::fromValue(entry(index.row()));
}

QHash<int, QByteArray> TableModel::roleNames() const {
    return {{EntryRole, "entry"}};
}

void TableModel::follow(const std::shared_ptr<shell::Table>& table) {
    const int before = rowCount();
    TableModel next(table);
    next.setFilter(words_);
    const int now = next.rowCount();
    if (now < before)
        beginRemoveRows({}, now, before - 1);
    else if (now > before)
        beginInsertRows({}, before, now - 1);
    table_ = table;
    ends_.swap(next.ends_);
    names_.swap(next.names_);
    passing_.swap(next.passing_);
    shown_.clear();
    if (now < before)
        endRemoveRows();
    else if (now > before)
        endInsertRows();
    if (now > 0)
        emit dataChanged(index(0), index(now - 1));
}

void TableModel::setFilter(platform::SearchWords words) {
    if (words == words_)
        return;
    readNames();
    beginResetModel();
    words_ = std::move(words);
    passing_.clear();
    const std::size_t count = words_.empty() || ends_.empty() ? 0 : ends_.back();
    for (std::size_t place = 0; place < count; ++place)
        if (words_.allIn(names_[place]))
            passing_.push_back(place);
    endResetModel();
}

void TableModel::readNames() {
    if (!names_.empty() || ends_.empty())
        return;
    names_ = table_->names();
    for (std::string& name : names_)
        name = platform::searchFolded(name);
    // The table's rows may have changed since they were counted.
    names_.resize(ends_.back());
}

void TableModel::rowChanged(NSIndexPath path) {
    if (path.section >= ends_.size() || before(path.section) + path.row >= ends_[path.section])
        return;
    std::size_t place = before(path.section) + path.row;
    if (!words_.empty()) {
        const auto passing = std::ranges::lower_bound(passing_, place);
        if (passing == passing_.end() || *passing != place)
            return;
        place = static_cast<std::size_t>(passing - passing_.begin());
    }
    emit dataChanged(index(static_cast<int>(place)), index(static_cast<int>(place)));
}

} // namespace wardlock::window
