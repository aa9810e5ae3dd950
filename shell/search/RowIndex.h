#pragma once

#include "platform/preferences/PSListController.h"
#include "platform/text/SearchFolding.h"
#include "platform/ui/NSIndexPath.h"
#include "shell/screen/PageBoundary.h"

#include <string>
#include <vector>

namespace wardlock::shell {

/// A row on a page below another page.
struct FoundRow {
    /// What the row shows: its label, or the placeholder of a text field without one.
    std::string label;
    /// The labels of the rows that lead to its page.
    std::vector<std::string> trail;
    /// The positions of those rows, and of the row itself.
    std::vector<platform::NSIndexPath> path;
    /// Whether the row only leads to another page.
    bool leadsOn = false;
};

/// The rows of all list pages below one page, for searching. The pages are created for the index and never
/// shown; the values of their rows are not read. Main thread only, inside the
/// boundary.
class RowIndex {
public:
    /// Reads the pages. A page that throws is left out.
    RowIndex(platform::PSListController& top, PageBoundary& boundary);

    /// Returns the rows that have one of the words in their label, and every word there or in their trail.
    std::vector<FoundRow> find(const platform::SearchWords& words) const;

private:
    struct Entry {
        FoundRow row;
        std::string foldedLabel;
        /// The label and the trail.
        std::string foldedAll;
    };

    void readPagesBelow(platform::PSListController& list, FoundRow& way);
    void readPage(platform::PSListController& list, FoundRow& way);
    void add(const platform::PSSpecifier& specifier, const FoundRow& way, platform::NSIndexPath path);

    PageBoundary& boundary_;
    std::vector<Entry> entries_;
};

/// Returns what a row shows as its name.
std::string shownLabel(const platform::PSSpecifier& specifier);

} // namespace wardlock::shell
