#pragma once

#include "platform/preferences/PSSpecifier.h"
#include "platform/ui/NSIndexPath.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace platform {

/// A list of specifiers as sections and rows. A group specifier starts a section, with its name as header and
/// its "footerText" as footer. Rows before the first group form a section without either.
class WARDLOCK_API PSListSections {
public:
    struct Section {
        /// Null for the rows before the first group.
        std::shared_ptr<PSSpecifier> group;
        std::vector<std::shared_ptr<PSSpecifier>> rows;

        /// Empty when there is none.
        std::string header() const;
        std::string footer() const;
    };

    explicit PSListSections(const std::vector<std::shared_ptr<PSSpecifier>>& specifiers);

    const std::vector<Section>& sections() const { return sections_; }
    /// Returns null when there is no such row.
    std::shared_ptr<PSSpecifier> at(NSIndexPath path) const;
    std::optional<NSIndexPath> find(const PSSpecifier& specifier) const;

private:
    std::vector<Section> sections_;
};

} // namespace platform
