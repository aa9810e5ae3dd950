#pragma once

#include "platform/base/Subscription.h"
#include "platform/runtime/CFNotificationCenter.h"
#include "shell/screen/Screen.h"
#include "shell/screen/ScreenChanges.h"
#include "shell/screen/ShownAccount.h"

namespace wardlock::shell {

/// Keeps the screen up to date while other processes change the settings. It observes the change
/// notification. For one that did not come from a page of this process:
/// - it leaves the pages of a deleted account, and otherwise has them follow it (ShownAccount.h);
/// - it rebuilds a bundle's first page;
/// - it reads the rows of the other list pages again;
/// - it keeps the document as a version.
///
/// The user did not ask for that, so an exception of a page is dropped and the earlier values stay. Main
/// thread only.
class LiveRefresh {
public:
    LiveRefresh(Screen& screen, ScreenChanges& changes, ShownAccount& account, PageBoundary& boundary);
    LiveRefresh(const LiveRefresh&) = delete;
    LiveRefresh& operator=(const LiveRefresh&) = delete;

    /// Reads again what the pages show.
    void refresh();
    /// Applies the changes of other processes: once for all that were announced since the last time.
    void refreshIfNeeded();

private:
    static void receive(platform::CFNotificationCenter& center, void* observer, std::string_view name,
                        const std::string* object, const platform::Dictionary* userInfo);
    void handleChange(const platform::Dictionary* userInfo);

    Screen& screen_;
    ScreenChanges& changes_;
    ShownAccount& account_;
    PageBoundary& boundary_;
    bool needed_ = false;
    platform::Subscription subscription_;
};

} // namespace wardlock::shell
