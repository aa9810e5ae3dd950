#pragma once

#include "settings/history/Difference.h"
#include "shell/input/PageInput.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace wardlock::shell {

/// Where the pages show a change.
struct ChangedPlace {
    /// The position of the account; none where the change concerns no account.
    std::optional<std::size_t> account;
    /// The key of the row; empty for the account as a whole, whose row is on the first page.
    std::string key;

    bool isInAccount() const { return account && !key.empty(); }

    enum class Direction { Back, Again };

    /// Returns the place of changes that were made at once, by taking a change back or making it again. Where
    /// enabling an account disabled another one, that is the enabled one's. Changes in several places have
    /// the first page in common.
    static ChangedPlace of(const std::vector<Change>& changes, Direction direction);
};

/// Leads the user to the page that shows a change. It knows the pages by what they show: the list of accounts
/// by their names, a row by its key or its label. Main thread only.
class ChangeGuide {
public:
    ChangeGuide(Screen& screen, ScreenChanges& changes, ShownAccount& account, PageInput& input,
                PageBoundary& boundary)
        : screen_(screen), changes_(changes), account_(account), input_(input), boundary_(boundary) {}

    /// Begins to go there, page by page; pages that show the place already stay.
    void lead(ChangedPlace place) { way_ = Way{std::move(place), 0}; }
    /// Ends the way: the pages are locked.
    void forget() { way_.reset(); }
    /// Takes the next step once a page is in its place. To be called when the pages have settled.
    void proceed();

private:
    /// A way that is not yet at its end.
    struct Way {
        ChangedPlace place;
        std::size_t steps = 0;
        /// Whether the bundle's entry was tapped: the user who does not enter the passcode stays outside.
        bool hasOpened = false;
    };
    /// Whether the way goes on after a step.
    enum class Step { Last, Another };

    Step takeStep(const ChangedPlace& place);
    Step showOnList(const ChangedPlace& place);
    Step showOnAccountPage(const ChangedPlace& place);
    Step showPicker(platform::NSIndexPath row);
    Step openBundle();
    Step tap(const std::optional<platform::NSIndexPath>& row);
    /// Goes back to a page of the stack. Returns false where it is on top.
    bool goBackTo(std::size_t page);
    void showRow(std::size_t page, const std::optional<platform::NSIndexPath>& row);

    Screen& screen_;
    ScreenChanges& changes_;
    ShownAccount& account_;
    PageInput& input_;
    PageBoundary& boundary_;
    std::optional<Way> way_;
};

} // namespace wardlock::shell
