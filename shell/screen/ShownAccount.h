#pragma once

#include "settings/Accounts.h"
#include "shell/screen/Screen.h"
#include "shell/screen/ScreenChanges.h"

#include <cstddef>
#include <memory>
#include <optional>

namespace wardlock::shell {

/// Watches over the account that the pages on the screen are about. Pages address it by its position in the
/// list of accounts, which other processes may change at any time: what they read and store then belongs to
/// another account, or to none.
///
/// No page is known here. A section of a bundle's first page whose rows are the names of the accounts lists
/// them, and the page that such a row opened shows the account at the row's position. Main thread only,
/// inside the boundary.
class ShownAccount {
public:
    ShownAccount(Screen& screen, ScreenChanges& changes) : screen_(screen), changes_(changes) {}

    /// The stack of pages, or the list of the first one, may have changed.
    void follow();
    /// A page of this process changed the settings.
    void acceptOwnChange();
    /// Goes back to the first page when the account shown is gone, or its position means another one, and has
    /// the notice say so. Returns whether it went back.
    bool leaveIfGone();

private:
    void leave(const std::string& reason);
    std::optional<std::size_t> positionShownBy(Page& opened, Page& list) const;

    Screen& screen_;
    ScreenChanges& changes_;
    std::weak_ptr<Page> list_;
    std::weak_ptr<Page> opened_;
    /// Which build of the first page's list the accounts were read for.
    std::size_t build_ = 0;
    /// The accounts as the pages on the screen know them.
    Accounts known_;
    /// Of the account shown; none while the pages show none.
    std::optional<std::size_t> position_;
};

} // namespace wardlock::shell
