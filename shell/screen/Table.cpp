#include "shell/screen/Table.h"

namespace wardlock::shell {

using platform::NSIndexPath;

std::size_t Table::sectionCount() {
    return boundary_.enter([&] { return view_->numberOfSections(); });
}

std::size_t Table::rowCount(std::size_t section) {
    return boundary_.enter([&] { return view_->numberOfRowsInSection(section); });
}

bool Table::has(NSIndexPath path) {
    return path.section < sectionCount() && path.row < rowCount(path.section);
}

double Table::rowHeight(NSIndexPath path) {
    return boundary_.enter([&] { return view_->heightForRow(path); });
}

std::shared_ptr<TableRow> Table::show(NSIndexPath path) {
    std::erase_if(shown_, [](const auto& row) { return row.expired(); });
    for (const auto& weak : shown_)
        if (auto row = weak.lock(); row && row->path() == path)
            return row;
    if (!has(path))
        return nullptr;
    auto cell = boundary_.enter([&] { return view_->takeCell(path); });
    if (!cell)
        return nullptr;
    auto row = std::make_shared<TableRow>(view_, path, std::move(cell));
    shown_.push_back(row);
    return row;
}

std::optional<NSIndexPath> Table::shownRow(const platform::UIView& view) {
    for (const auto& weak : shown_) {
        const auto row = weak.lock();
        if (row && (row->isCell(view) || (view.superview() && row->isCell(*view.superview()))))
            return row->path();
    }
    return std::nullopt;
}

} // namespace wardlock::shell
