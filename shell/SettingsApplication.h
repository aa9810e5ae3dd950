#pragma once

#include "shell/LiveRefresh.h"
#include "shell/input/BoundaryClock.h"
#include "shell/input/PageInput.h"
#include "shell/input/SheetInput.h"
#include "shell/screen/Screen.h"
#include "shell/screen/ScreenChanges.h"
#include "shell/screen/ShownAccount.h"

#include <memory>

namespace wardlock::shell {

/// The Settings application without a face. It holds the pages, shows the device's settings bundles on the
/// first of them, and offers one picture of what a person sees now and everything that a person can do. A
/// face reads screen(), acts through page() and sheets(), hears of changes as the observer, lends its clock,
/// and lets process() run whenever MainLoop's descriptor is readable.
///
/// One per process at a time; main thread only. Nothing here throws: an exception that a page does not catch
/// ends the process, after the uncaught-exception handler and installTerminationHook().
class SettingsApplication {
public:
    /// The clock is not owned and outlives this object. Pushes and pops take `transitionSeconds` on it; at 0
    /// they end at once.
    explicit SettingsApplication(platform::AnimationClock& clock, double transitionSeconds = 0);
    /// Closes.
    ~SettingsApplication();
    SettingsApplication(const SettingsApplication&) = delete;
    SettingsApplication& operator=(const SettingsApplication&) = delete;

    /// Who is told of changes: not owned, null for none.
    void setObserver(ScreenObserver* observer) { changes_.setObserver(observer); }

    Screen& screen() { return screen_; }
    PageInput& page() { return pageInput_; }
    SheetInput& sheets() { return sheetInput_; }

    void setTransitionSeconds(double seconds);
    /// Does what is due on the main loop, and never waits: log entries, other processes' changes.
    void process();
    /// Runs something of the face's that enters pages: a timer's action, an engine's report.
    template <class Call>
    void run(Call&& call) {
        boundary_.enter(std::forward<Call>(call));
    }

    /// The whole application loses the focus, is minimised or suspended.
    void resignActive();
    void dismissNotice();
    /// The window is closed: what was being typed is stored, the log is written. Nothing more is to be done
    /// with the pages then.
    void close();

private:
    void settle();
    void readTopPage();
    void endEditingIn(platform::UIView& view);
    void watchMail();
    void dismissSheets();

    PageBoundary boundary_;
    BoundaryClock clock_;
    Screen screen_;
    ScreenChanges changes_;
    ShownAccount account_;
    PageInput pageInput_;
    SheetInput sheetInput_;
    LiveRefresh liveRefresh_;
    /// The mail sheet last seen, until the way of its mail has been told.
    std::shared_ptr<platform::MFMailComposeViewController> mail_;
    bool inTransition_ = false;
    bool closed_ = false;
};

} // namespace wardlock::shell
