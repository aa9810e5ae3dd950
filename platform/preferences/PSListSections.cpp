#include "platform/preferences/PSListSections.h"

#include <algorithm>

namespace platform {

std::string PSListSections::Section::header() const {
    return group ? group->name() : std::string();
}

std::string PSListSections::Section::footer() const {
    return group
               ? std::string(stringValue(group->valueForKey(PSKey::footerText)).value_or(std::string_view()))
               : std::string();
}

PSListSections::PSListSections(const std::vector<std::shared_ptr<PSSpecifier>>& specifiers) {
    for (const auto& specifier : specifiers) {
        if (specifier->cellType() == PSCellType::Group) {
            sections_.push_back({specifier, {}});
            continue;
        }
        if (sections_.empty())
            sections_.emplace_back();
        sections_.back().rows.push_back(specifier);
    }
}

std::shared_ptr<PSSpecifier> PSListSections::at(NSIndexPath path) const {
    if (path.section >= sections_.size() || path.row >= sections_[path.section].rows.size())
        return nullptr;
    return sections_[path.section].rows[path.row];
}

std::optional<NSIndexPath> PSListSections::find(const PSSpecifier& specifier) const {
    for (std::size_t section = 0; section < sections_.size(); ++section) {
        const auto& rows = sections_[section].rows;
        const auto row = std::find_if(rows.begin(), rows.end(),
                                      [&](const auto& candidate) { return candidate.get() == &specifier; });
        if (row != rows.end())
            return NSIndexPath{section, static_cast<std::size_t>(row - rows.begin())};
    }
    return std::nullopt;
}

} // namespace platform
