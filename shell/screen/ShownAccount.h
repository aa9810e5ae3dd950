#pragma once

#include "settings/Accounts.h"
#include "shell/screen/Screen.h"
#include "shell/screen/ScreenChanges.h"

#include <cstddef>
#include <memory>
#include <optional>

namespace wardlock::shell {

/// Watches the account that the pages on the screen show. Pages address it by its position in the list of
/// accounts, which other processes may change at any time. What they read and store then belongs to another
/// account, or to none.
///
/// This class does not know the pages. It searches a bundle's first page for a section whose rows are the
/// names of the accounts. The page that such a row opened shows the account at the row's position. Main
/// thread only, inside the boundary.
class ShownAccount {
public:
    ShownAccount(Screen& screen, ScreenChanges& changes) : screen_(screen), changes_(changes) {}

    /// To be called when the stack of pages, or the list of the first one, may have changed.
    void follow();
    /// To be called when a page of this process changed the settings.
    void acceptOwnChange();
    /// Goes back to the first page, with a notice, when the shown account was deleted or its position means
    /// another one. Returns whether it went back. Otherwise the title follows the account's name, and a
    /// picker is created again when another process changed what it shows.
    bool leaveIfGone();
    /// Goes back to the first page, without a notice: the list of accounts has changed, and the user knows.
    void leaveForList();

    /// The position of the account shown; none while the pages show none.
    std::optional<std::size_t> position() const { return position_; }
    /// Returns the row of an account on the first page; none where that has no list of the accounts.
    std::optional<platform::NSIndexPath> rowOf(std::size_t position) const;

private:
    void leave(const std::string& reason);
    /// Returns whether text was being typed on a page that was left.
    bool popToList();
    void followName();
    std::optional<std::size_t> positionShownBy(Page& opened, Page& list) const;

    Screen& screen_;
    ScreenChanges& changes_;
    std::weak_ptr<Page> list_;
    std::weak_ptr<Page> opened_;
    /// The build of the first page's list for which the accounts were read.
    std::size_t build_ = 0;
    /// The accounts as the pages on the screen know them.
    Accounts known_;
    std::optional<std::size_t> position_;
};

} // namespace wardlock::shell
