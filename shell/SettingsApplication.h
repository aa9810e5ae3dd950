#pragma once

#include "shell/LiveRefresh.h"
#include "shell/guard/Guard.h"
#include "shell/guard/IdleTimer.h"
#include "shell/input/BoundaryClock.h"
#include "shell/input/PageInput.h"
#include "shell/input/SheetInput.h"
#include "shell/screen/Screen.h"
#include "shell/screen/ScreenChanges.h"
#include "shell/screen/ShownAccount.h"
#include "shell/screen/UnsavedChanges.h"
#include "shell/search/SettingsSearch.h"
#include "shell/undo/Recovery.h"
#include "shell/undo/SettingsUndo.h"

#include <memory>

namespace wardlock::shell {

/// The Settings application without a front end. It owns the pages and shows the device's settings bundles on
/// the first of them. It offers what the user sees now as screen(), and everything that the user can do as
/// page() and sheets(). A front end observes changes, lends its clock, and calls process() whenever
/// MainLoop's descriptor is readable.
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

    /// Notifies the observer of changes until the subscription ends, which the observer outlives.
    platform::Subscription observe(ScreenObserver& observer) { return changes_.observe(observer); }

    Screen& screen() { return screen_; }
    PageInput& page() { return pageInput_; }
    SheetInput& sheets() { return sheetInput_; }
    SettingsSearch& search() { return search_; }
    SettingsUndo& history() { return undo_; }
    Recovery& recovery() { return recovery_; }

    void setTransitionSeconds(double seconds);
    /// Does what is due on the main loop without waiting: log entries, other processes' changes.
    void process();
    /// Runs a call of the front end that enters pages: a timer's action, an engine's report.
    template <class Call>
    void run(Call&& call) {
        boundary_.enter(std::forward<Call>(call));
    }

    /// For a host that brings its own guard: Settings asks for no passcode from now on.
    void turnOffGuard() { guard_.turnOff(); }
    /// To be called when the whole application loses the focus, is minimised or suspended. While the settings
    /// require a passcode, it leaves the pages as closing does, and their entry asks for the passcode again.
    void resignActive();
    /// To be called for what the user does without page() and sheets(): a key, a movement, scrolling. An hour
    /// without it has the effect of resignActive() where the settings require a passcode.
    void noteActivity() { idleTimer_.noteActivity(); }
    void dismissNotice();
    /// Stores what is being typed. Returns false when it could not be stored; the notice gives the reason.
    bool storeTypedText();
    /// To be called when the window is closed: stores what was being typed and writes the log. The pages are
    /// not used after it.
    void close();

private:
    void settle();
    void readTopPage();
    void endEditingIn(platform::UIView& view);
    void watchMail();
    void dismissSheets();
    void lock();
    UndoHost undoHost();
    void lockWhenIdle();

    PageBoundary boundary_;
    BoundaryClock clock_;
    Screen screen_;
    ScreenChanges changes_;
    UnsavedChanges unsaved_;
    ShownAccount account_;
    PageInput pageInput_;
    SheetInput sheetInput_;
    SettingsSearch search_;
    LiveRefresh liveRefresh_;
    Guard guard_;
    IdleTimer idleTimer_;
    SettingsUndo undo_;
    Recovery recovery_;
    /// The most recent mail sheet, until the outcome of its mail has been shown.
    std::shared_ptr<platform::MFMailComposeViewController> mail_;
    bool inTransition_ = false;
    bool closed_ = false;
};

} // namespace wardlock::shell
