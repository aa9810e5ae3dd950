#pragma once

#include "shell/input/PageInput.h"
#include "shell/search/RowIndex.h"

#include <memory>
#include <optional>
#include <vector>

namespace wardlock::shell {

/// Finds rows on the pages below a page, and leads the user to one of them. Main thread only.
class SettingsSearch {
public:
    SettingsSearch(Screen& screen, ScreenChanges& changes, PageInput& input, PageBoundary& boundary)
        : screen_(screen), changes_(changes), input_(input), boundary_(boundary) {}

    /// Returns the rows below `page` that pass the words; none for empty words. The pages are read at the
    /// first search, and again once the list of `page` was rebuilt or the search was forgotten.
    std::vector<FoundRow> find(const std::shared_ptr<Page>& page, const platform::SearchWords& words);
    /// To be called when the user ends the search.
    void forget() { index_.reset(); }

    /// Goes from the page on top to a row that was found below it, page by page. A row that leads on is then
    /// opened; of any other row the observers are notified by rowFound(). Refused when the pages have changed
    /// since.
    InputResult open(const FoundRow& row);
    /// Takes the next step once a page is in its place. To be called when the pages have settled.
    void proceed();

private:
    /// A way that is not yet at its end.
    struct Way {
        FoundRow row;
        /// The steps taken, and the number of pages from which the next one starts.
        std::size_t steps = 0;
        std::size_t pages = 0;

        bool isLast() const { return steps + 1 == row.path.size(); }
    };

    bool isOnWay(const Way& way) const;
    InputResult takeStep(const Way& way);

    Screen& screen_;
    ScreenChanges& changes_;
    PageInput& input_;
    PageBoundary& boundary_;
    std::optional<RowIndex> index_;
    std::weak_ptr<Page> indexed_;
    std::size_t build_ = 0;
    std::optional<Way> way_;
};

} // namespace wardlock::shell
