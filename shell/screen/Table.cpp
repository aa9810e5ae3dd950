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
    std::erase_if(shown_, [](const auto& shown) { return shown.row.expired(); });
    for (const auto& shown : shown_)
        if (shown.path == path)
            return shown.row.lock();
    if (!has(path))
        return nullptr;
    auto cell = boundary_.enter([&] { return view_->takeCell(path); });
    if (!cell)
        return nullptr;
    const platform::UIView* const shownCell = cell.get();
    auto row = std::make_shared<TableRow>(view_, path, std::move(cell));
    shown_.push_back({path, shownCell, row});
    return row;
}

std::vector<std::string> Table::names() {
    return boundary_.enter([&] {
        std::vector<std::string> names;
        for (std::size_t section = 0, sections = view_->numberOfSections(); section < sections; ++section) {
            const std::size_t rows = view_->numberOfRowsInSection(section);
            for (std::size_t row = 0; row < rows; ++row) {
                const NSIndexPath path{section, row};
                auto cell = view_->takeCell(path);
                names.push_back(cell ? TableRow(view_, path, std::move(cell)).name() : std::string());
            }
        }
        return names;
    });
}

std::optional<NSIndexPath> Table::shownRow(const platform::UIView& view) {
    const auto above = view.superview();
    for (const auto& shown : shown_)
        if ((shown.cell == &view || shown.cell == above.get()) && !shown.row.expired())
            return shown.path;
    return std::nullopt;
}

} // namespace wardlock::shell
