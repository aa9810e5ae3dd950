#include "shell/search/SettingsSearch.h"

#include <utility>

namespace wardlock::shell {

std::vector<FoundRow> SettingsSearch::find(const std::shared_ptr<Page>& page,
                                           const platform::SearchWords& words) {
    if (words.empty() || !page->isList())
        return {};
    return boundary_.enter([&] {
        if (!index_ || indexed_.lock() != page || build_ != page->builds()) {
            index_.emplace(*page->listController(), boundary_);
            indexed_ = page;
            build_ = page->builds();
        }
        return index_->find(words);
    });
}

InputResult SettingsSearch::open(const FoundRow& row) {
    way_.reset();
    const Way way{row, 0, screen_.pages().size()};
    return boundary_.enter([&] { return takeStep(way); });
}

void SettingsSearch::proceed() {
    if (!way_ || boundary_.isInside() || screen_.isInTransition())
        return;
    // Taken first: leaving the boundary comes here again.
    const Way way = *std::exchange(way_, std::nullopt);
    if (screen_.pages().size() != way.pages)
        return;
    // Refused where something has covered the page: the user sees the reason.
    [[maybe_unused]] const InputResult result = boundary_.enter([&] { return takeStep(way); });
}

/// Returns whether the next row to tap is still the one that was found.
bool SettingsSearch::isOnWay(const Way& way) const {
    const auto specifier = screen_.page()->specifier(way.row.path[way.steps]);
    return specifier && shownLabel(*specifier) == (way.isLast() ? way.row.label : way.row.trail[way.steps]);
}

InputResult SettingsSearch::takeStep(const Way& way) {
    if (!isOnWay(way))
        return InputResult::refused("the settings have changed since the search");
    const auto path = way.row.path[way.steps];
    if (way.isLast() && !way.row.leadsOn) {
        changes_.found(screen_.page(), path);
        return InputResult::done();
    }
    auto result = input_.tapRow(path);
    if (result && !way.isLast())
        way_ = Way{way.row, way.steps + 1, way.pages + 1};
    return result;
}

} // namespace wardlock::shell
