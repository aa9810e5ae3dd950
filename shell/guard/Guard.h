#pragma once

#include "shell/guard/KeypadOverlay.h"
#include "shell/screen/PageBoundary.h"
#include "shell/screen/Screen.h"
#include "shell/screen/ScreenChanges.h"

#include <functional>
#include <memory>

namespace wardlock::shell {

/// Asks for the passcode before the pages of a settings bundle are opened, while the settings require one
/// (settings/RequiredPasscode.h). The pages do not know of it. Main thread only.
class Guard : private ScreenObserver {
public:
    /// The objects outlive this one.
    Guard(Screen& screen, ScreenChanges& changes, PageBoundary& boundary);

    /// For a host that brings its own guard: nothing is asked from now on.
    void turnOff() { on_ = false; }
    bool isOn() const { return on_; }
    /// Returns whether the passcode is required now.
    bool isNeeded() const;

    /// Runs `open` once the user may pass: at once, after the right passcode, or when a passcode is no
    /// longer required. The fourth wrong passcode and Cancel drop it.
    void admit(std::function<void()> open);
    /// Returns whether its keypad is on the screen, also while it fades out.
    bool isAsking() const { return keypad_ && keypad_->isShown(); }
    /// Closes its keypad; no effect while it does not ask.
    void cancel();

private:
    void changeAnnounced(const Announcement& announcement) override;
    void enter(const std::string& digits);
    void letIn();

    Screen& screen_;
    PageBoundary& boundary_;
    bool on_ = true;
    std::shared_ptr<KeypadOverlay> keypad_;
    /// What waits for the passcode; empty while nothing does.
    std::function<void()> open_;
    int failures_ = 0;
    platform::Subscription subscription_;
};

} // namespace wardlock::shell
