#pragma once

#include "platform/services/PasscodeLockView.h"
#include "platform/ui/UIVisualEffectView.h"
#include "platform/ui/UIWindow.h"

#include <functional>
#include <memory>
#include <string>

namespace wardlock::shell {

/// The application's own keypad over a dark blur, over everything. It fades in when shown and out when taken
/// down, as the pages' keypads do. Main thread only.
class KeypadOverlay : public platform::UIView, public platform::SBUIPasscodeLockViewDelegate {
public:
    using Keypad = platform::SBUIPasscodeLockViewSimple4DigitKeypad;
    using Entered = std::function<void(const std::string& digits)>;
    using Cancelled = std::function<void()>;

    /// Adds a keypad with its usual status text to the window.
    static std::shared_ptr<KeypadOverlay> showOn(platform::UIWindow& window, Entered entered,
                                                 Cancelled cancelled);
    ~KeypadOverlay() override;

    /// Shakes, and waits for the next entry.
    void reject();
    /// Fades out and then leaves the window. The keypad takes no input from now on.
    void takeDown();
    /// Returns whether it is on the window, also while it fades out.
    bool isShown() const { return superview() != nullptr; }

    void passcodeLockViewPasscodeEntered(Keypad& keypad) override;
    void passcodeLockViewPasscodeEnteredViaMesa(Keypad& keypad) override;
    void passcodeLockViewCancelButtonPressed(Keypad& keypad) override;

private:
    KeypadOverlay(const platform::CGRect& frame, Entered entered, Cancelled cancelled);

    void create();
    void setShown(bool shown, std::function<void(bool finished)> ended);

    Entered entered_;
    Cancelled cancelled_;
    std::shared_ptr<Keypad> keypad_;
    std::shared_ptr<platform::UIVisualEffectView> blur_;
};

} // namespace wardlock::shell
