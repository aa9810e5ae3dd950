#include "shell/search/RowIndex.h"

#include "shell/screen/Row.h"

namespace wardlock::shell {

using platform::NSIndexPath;
using platform::PSListController;

namespace {

/// Pages may link in a circle.
constexpr std::size_t deepest = 4;
constexpr std::size_t mostRows = 100'000;

bool isLink(const platform::PSSpecifier& specifier) {
    return specifier.cellType() == platform::PSCellType::Link;
}

} // namespace

std::string shownLabel(const platform::PSSpecifier& specifier) {
    Row row = rowFor(specifier, std::nullopt);
    return row.label.empty() ? std::move(row.placeholder) : std::move(row.label);
}

RowIndex::RowIndex(PSListController& top, PageBoundary& boundary) : boundary_(boundary) {
    FoundRow way;
    boundary_.tryEnter([&] { readPagesBelow(top, way); });
}

void RowIndex::readPagesBelow(PSListController& list, FoundRow& way) {
    const std::size_t depth = way.path.size();
    if (depth == deepest)
        return;
    const auto sections = list.sections().sections();
    for (std::size_t section = 0; section < sections.size(); ++section)
        for (std::size_t row = 0; row < sections[section].rows.size(); ++row) {
            const auto& specifier = *sections[section].rows[row];
            if (!isLink(specifier) || entries_.size() >= mostRows)
                continue;
            way.trail.push_back(shownLabel(specifier));
            way.path.push_back({section, row});
            boundary_.tryEnter([&] {
                const auto page = list.detailPageForRowAtIndexPath({section, row});
                if (auto* below = dynamic_cast<PSListController*>(page.get()))
                    readPage(*below, way);
            });
            // Also after an exception on a page further below.
            way.trail.resize(depth);
            way.path.resize(depth);
        }
}

void RowIndex::readPage(PSListController& list, FoundRow& way) {
    const auto sections = list.sections().sections();
    for (std::size_t section = 0; section < sections.size(); ++section)
        for (std::size_t row = 0; row < sections[section].rows.size(); ++row)
            add(*sections[section].rows[row], way, {section, row});
    readPagesBelow(list, way);
}

void RowIndex::add(const platform::PSSpecifier& specifier, const FoundRow& way, NSIndexPath path) {
    Entry entry{way, {}, {}};
    entry.row.label = shownLabel(specifier);
    if (entry.row.label.empty())
        return;
    entry.row.path.push_back(path);
    entry.row.leadsOn = isLink(specifier);
    entry.foldedLabel = platform::searchFolded(entry.row.label);
    entry.foldedAll = entry.foldedLabel;
    for (const std::string& name : way.trail)
        entry.foldedAll += '\n' + platform::searchFolded(name);
    entries_.push_back(std::move(entry));
}

std::vector<FoundRow> RowIndex::find(const platform::SearchWords& words) const {
    std::vector<FoundRow> found;
    for (const Entry& entry : entries_)
        if (words.anyIn(entry.foldedLabel) && words.allIn(entry.foldedAll))
            found.push_back(entry.row);
    return found;
}

} // namespace wardlock::shell
