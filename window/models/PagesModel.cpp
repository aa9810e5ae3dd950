#include "window/models/PagesModel.h"

#include <algorithm>

namespace wardlock::window {

int PagesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

QVariant PagesModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto place = static_cast<std::size_t>(index.row());
    const Entry& entry = entries_[place];
    if (role == PageRole)
        return QVariant::fromValue(entry.model.get());
    if (role != PlaceRole)
        return {};
    if (entry.leaving)
        return QStringLiteral("leaving");
    if (entry.entering)
        return QStringLiteral("entering");
    const bool top = entry.model.get() == this->top();
    return top ? QStringLiteral("top") : QStringLiteral("below");
}

QHash<int, QByteArray> PagesModel::roleNames() const {
    return {{PageRole, "page"}, {PlaceRole, "place"}};
}

void PagesModel::follow(bool animated) {
    const auto& pages = application_.screen().pages();
    std::size_t same = 0;
    while (same < pages.size() && same < entries_.size() && entries_[same].model->page() == pages[same] &&
           !entries_[same].leaving)
        ++same;
    if (animated && same == pages.size() && same < entries_.size() && !entries_.back().leaving) {
        // Of several pages, only the topmost was seen.
        remove(same, entries_.size() - 1);
        entries_.back().leaving = true;
    } else {
        remove(same, entries_.size());
    }
    for (std::size_t place = same; place < pages.size(); ++place)
        push(pages[place], animated && place + 1 == pages.size());
    if (!entries_.empty())
        emit dataChanged(index(0), index(rowCount() - 1), {PlaceRole});
}

void PagesModel::transitionEnded() {
    const auto leaving =
        std::find_if(entries_.begin(), entries_.end(), [](const Entry& entry) { return entry.leaving; });
    remove(static_cast<std::size_t>(leaving - entries_.begin()), entries_.size());
    for (Entry& entry : entries_)
        entry.entering = false;
    if (!entries_.empty())
        emit dataChanged(index(0), index(rowCount() - 1), {PlaceRole});
}

void PagesModel::barMayHaveChanged(const shell::Page& page) {
    for (std::size_t place = 0; place < entries_.size(); ++place) {
        if (entries_[place].model->page().get() != &page)
            continue;
        entries_[place].model->barMayHaveChanged();
        if (place + 1 < entries_.size())
            entries_[place + 1].model->setBackTitle(entries_[place].model->title());
    }
}

PageModel* PagesModel::find(const shell::Page& page) const {
    for (const Entry& entry : entries_)
        if (entry.model->page().get() == &page)
            return entry.model.get();
    return nullptr;
}

PageModel* PagesModel::top() const {
    for (auto entry = entries_.rbegin(); entry != entries_.rend(); ++entry)
        if (!entry->leaving)
            return entry->model.get();
    return nullptr;
}

void PagesModel::remove(std::size_t first, std::size_t end) {
    if (first >= end)
        return;
    beginRemoveRows({}, static_cast<int>(first), static_cast<int>(end) - 1);
    for (std::size_t place = first; place < end; ++place)
        entries_[place].model.release()->deleteLater();
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(first),
                   entries_.begin() + static_cast<std::ptrdiff_t>(end));
    endRemoveRows();
}

void PagesModel::push(const std::shared_ptr<shell::Page>& page, bool animated) {
    const auto place = entries_.size();
    beginInsertRows({}, static_cast<int>(place), static_cast<int>(place));
    const QString backTitle = place > 0 ? entries_.back().model->title() : QString();
    entries_.push_back(
        {std::make_unique<PageModel>(page, backTitle, application_, actions_, engine_), animated, false});
    endInsertRows();
}

} // namespace wardlock::window
