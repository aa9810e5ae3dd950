#pragma once

#include "platform/runtime/CFNotificationCenter.h"
#include "shell/screen/Screen.h"
#include "shell/screen/ScreenChanges.h"
#include "shell/screen/ShownAccount.h"

namespace wardlock::shell {

/// Keeps the screen fresh while other processes change the settings: observes the change notification, and
/// when it did not come from a page of this process leaves the pages of an account that is gone, builds a
/// bundle's first page anew and reads the rows of the other list pages again. Nobody asked for that, so what
/// a page throws is dropped and what was shown before stays. A table's rows never move. Main thread only; one
/// at a time, since the centre keeps its observers for the life of the process.
class LiveRefresh {
public:
    LiveRefresh(Screen& screen, ScreenChanges& changes, ShownAccount& account, PageBoundary& boundary);
    ~LiveRefresh();
    LiveRefresh(const LiveRefresh&) = delete;
    LiveRefresh& operator=(const LiveRefresh&) = delete;

    /// Does what other processes' changes call for: once for all that came since the last time.
    void refreshIfNeeded();

private:
    static void hear(platform::CFNotificationCenter& center, void* observer, std::string_view name,
                     const std::string* object, const platform::Dictionary* userInfo);
    void heard(const platform::Dictionary* userInfo);

    Screen& screen_;
    ScreenChanges& changes_;
    ShownAccount& account_;
    PageBoundary& boundary_;
    bool needed_ = false;
};

} // namespace wardlock::shell
