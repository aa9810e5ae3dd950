#include "window/models/RowsModel.h"

#include "platform/preferences/PSListItemsController.h"
#include "window/models/Text.h"
#include "window/pictures/PictureSource.h"

#include <algorithm>

namespace wardlock::window {

using platform::NSIndexPath;

namespace {

RowEntry entryFor(const shell::Row& row) {
    RowEntry entry;
    entry.entry = QStringLiteral("row");
    entry.kind = toQt(shell::name(row.kind));
    entry.label = shownName(row.label);
    entry.value = shownText(row.text);
    entry.cut = isCut(row.text);
    entry.key = toQt(row.key);
    entry.on = row.isOn();
    entry.enabled = row.enabled;
    entry.marked = row.marked;
    entry.icon = PictureSource::urlFor(row.icon);
    entry.placeholder = shownText(row.placeholder);
    entry.numberPad = row.numberPad;
    entry.editing = row.editing;
    entry.min = row.min;
    entry.max = row.max;
    entry.position = row.position();
    entry.showsValue = row.showsValue;
    return entry;
}

} // namespace

RowsModel::RowsModel(std::shared_ptr<shell::Page> page)
    : page_(std::move(page)), foundSection_(page_->sectionCount()), lines_(readLines()) {}

int RowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

QVariant RowsModel::data(const QModelIndex& index, int role) const {
    if (role != EntryRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    return QVariant::fromValue(entry(lines_[static_cast<std::size_t>(index.row())]));
}

QHash<int, QByteArray> RowsModel::roleNames() const {
    return {{EntryRole, "entry"}};
}

void RowsModel::setFilter(platform::SearchWords words, std::vector<shell::FoundRow> below) {
    words_ = std::move(words);
    found_ = std::move(below);
    foundSection_ = page_->sectionCount();
    replace(readLines());
}

const shell::FoundRow* RowsModel::found(NSIndexPath path) const {
    return path.section == foundSection_ && path.row < found_.size() ? &found_[path.row] : nullptr;
}

int RowsModel::placeOf(NSIndexPath path) const {
    const auto line = std::ranges::find_if(lines_, [path](const Line& candidate) {
        return candidate.kind == Line::Kind::Row && candidate.path == path;
    });
    return line == lines_.end() ? -1 : static_cast<int>(line - lines_.begin());
}

void RowsModel::rowChanged(NSIndexPath path) {
    for (std::size_t i = 0; i < lines_.size(); ++i)
        if (lines_[i].kind == Line::Kind::Row && lines_[i].path == path)
            emit dataChanged(index(static_cast<int>(i)), index(static_cast<int>(i)));
}

void RowsModel::allChanged() {
    if (!lines_.empty())
        emit dataChanged(index(0), index(rowCount() - 1));
}

std::vector<RowsModel::Line> RowsModel::readLines() const {
    std::vector<Line> lines;
    const std::size_t sections = page_->sectionCount();
    for (std::size_t section = 0; section < sections; ++section)
        readSection(section, lines);
    addFound(lines);
    int rows = 0;
    for (Line& line : lines)
        if (line.kind == Line::Kind::Row || line.kind == Line::Kind::Found)
            line.number = ++rows;
    return lines;
}

void RowsModel::addFound(std::vector<Line>& lines) const {
    if (found_.empty())
        return;
    lines.push_back({Line::Kind::Header, {foundSection_, 0}, false, false, {}});
    for (std::size_t i = 0; i < found_.size(); ++i) {
        std::string name = found_[i].label;
        for (const std::string& page : found_[i].trail)
            name += '\n' + page;
        lines.push_back({Line::Kind::Found, {foundSection_, i}, i == 0, false, std::move(name)});
    }
    lines.back().last = true;
}

void RowsModel::readSection(std::size_t index, std::vector<Line>& lines) const {
    const auto section = page_->section(index);
    const std::size_t start = lines.size();
    lines.push_back({Line::Kind::Header, {index, 0}, false, false, section.header});
    for (std::size_t row = 0; row < section.rowCount; ++row) {
        const auto specifier = page_->specifier({index, row});
        if (specifier &&
            (words_.empty() || words_.allIn(platform::searchFolded(shell::shownLabel(*specifier)))))
            lines.push_back({Line::Kind::Row,
                             {index, row},
                             false,
                             false,
                             specifier->name() + '\n' + specifier->identifier()});
    }
    if (lines.size() > start + 1) {
        lines[start + 1].first = true;
        lines.back().last = true;
    } else if (!words_.empty()) {
        lines.resize(start);
        return;
    }
    if (!section.footer.empty() && words_.empty())
        lines.push_back({Line::Kind::Footer, {index, 0}, false, false, section.footer});
}

void RowsModel::replace(std::vector<Line> lines) {
    const auto same = [](const Line& a, const Line& b) { return a.isSame(b); };
    const auto ahead = std::mismatch(lines_.begin(), lines_.end(), lines.begin(), lines.end(), same);
    const auto head = ahead.first - lines_.begin();
    const auto behind = std::mismatch(lines_.rbegin(), std::make_reverse_iterator(ahead.first),
                                      lines.rbegin(), std::make_reverse_iterator(ahead.second), same);
    const auto tail = behind.first - lines_.rbegin();
    const auto oldCount = static_cast<std::ptrdiff_t>(lines_.size()) - head - tail;
    const auto newCount = static_cast<std::ptrdiff_t>(lines.size()) - head - tail;
    if (oldCount > 0) {
        beginRemoveRows({}, static_cast<int>(head), static_cast<int>(head + oldCount - 1));
        lines_.erase(lines_.begin() + head, lines_.begin() + head + oldCount);
        endRemoveRows();
    }
    if (newCount > 0) {
        beginInsertRows({}, static_cast<int>(head), static_cast<int>(head + newCount - 1));
        lines_ = std::move(lines);
        endInsertRows();
    } else {
        lines_ = std::move(lines);
    }
    allChanged();
}

RowEntry RowsModel::entryForFound(const Line& line) const {
    RowEntry entry;
    // While the lines are replaced, a view may still read one of the search before.
    if (line.path.row >= found_.size())
        return entry;
    const shell::FoundRow& found = found_[line.path.row];
    entry.entry = QStringLiteral("row");
    entry.kind = toQt(shell::name(shell::RowKind::Link));
    entry.label = shownName(found.label);
    QStringList pages;
    for (const std::string& page : found.trail)
        pages.append(shownName(page));
    entry.value = pages.join(QStringLiteral(" \u203a "));
    return entry;
}

int RowsModel::rowsShown() const {
    const auto last =
        std::find_if(lines_.rbegin(), lines_.rend(), [](const Line& line) { return line.number > 0; });
    return last == lines_.rend() ? 0 : last->number;
}

RowEntry RowsModel::entry(const Line& line) const {
    RowEntry entry;
    if (line.kind == Line::Kind::Found) {
        entry = entryForFound(line);
    } else if (line.kind == Line::Kind::Row) {
        if (!page_->has(line.path))
            return entry;
        entry = entryFor(page_->row(line.path));
        entry.choice = dynamic_cast<platform::PSListItemsController*>(page_->listController()) != nullptr;
    } else {
        entry.entry = line.kind == Line::Kind::Header ? QStringLiteral("header") : QStringLiteral("footer");
        entry.text = shownText(line.name);
    }
    entry.number = line.number;
    entry.count = line.number > 0 ? rowsShown() : 0;
    entry.section = static_cast<int>(line.path.section);
    entry.row = static_cast<int>(line.path.row);
    entry.first = line.first;
    entry.last = line.last;
    return entry;
}

} // namespace wardlock::window
