#include "cli/terminal/RowNames.h"

#include "cli/io/RowText.h"

#include <utility>

namespace wardlock::cli {

namespace {

NamedRow named(platform::NSIndexPath path, const shell::Row& row) {
    return {path, rowLabel(row), row.kind == shell::RowKind::Switch || row.kind == shell::RowKind::Button};
}

std::vector<NamedRow> rowsOf(shell::Page& page) {
    std::vector<NamedRow> rows;
    const bool isList = page.isList();
    const auto table = isList ? nullptr : page.table();
    const std::size_t sections = isList ? page.sectionCount() : table ? table->sectionCount() : 0;
    for (std::size_t section = 0; section < sections; ++section) {
        const std::size_t count = isList ? page.section(section).rowCount : table->rowCount(section);
        for (std::size_t row = 0; row < count; ++row) {
            if (isList)
                rows.push_back(named({section, row}, page.row({section, row})));
            else if (const auto shown = table->show({section, row}))
                rows.push_back({{section, row}, rowLabel(*shown), shown->switchControl() != nullptr});
        }
    }
    return rows;
}

} // namespace

std::vector<NamedRow> rowsNamed(shell::Page& page, const std::string& name) {
    const std::string wanted = folded(name);
    std::vector<NamedRow> same;
    std::vector<NamedRow> beginning;
    for (auto& row : rowsOf(page)) {
        const std::string label = folded(row.label);
        if (label == wanted)
            same.push_back(std::move(row));
        else if (!row.changes && label.starts_with(wanted))
            beginning.push_back(std::move(row));
    }
    return same.empty() ? beginning : same;
}

} // namespace wardlock::cli
