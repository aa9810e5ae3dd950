#pragma once

#include "platform/ui/UIView.h"

#include <memory>
#include <string>
#include <string_view>

namespace platform {

class SBUIPasscodeLockViewSimple4DigitKeypad;

/// What the keypad reports. Optional methods: empty unless overridden.
class WARDLOCK_API SBUIPasscodeLockViewDelegate {
public:
    virtual ~SBUIPasscodeLockViewDelegate();
    virtual void passcodeLockViewPasscodeEntered(SBUIPasscodeLockViewSimple4DigitKeypad&) {}
    virtual void passcodeLockViewPasscodeEnteredViaMesa(SBUIPasscodeLockViewSimple4DigitKeypad&) {}
    virtual void passcodeLockViewCancelButtonPressed(SBUIPasscodeLockViewSimple4DigitKeypad&) {}
    virtual void passcodeLockViewEmergencyCallButtonPressed(SBUIPasscodeLockViewSimple4DigitKeypad&) {}
};

/// The four-digit keypad. Its delegate is not retained. It takes input while its alpha is above 0, so while
/// it fades in and not while it fades out. The fourth digit reports the entry; further digits are ignored
/// until a reset.
class WARDLOCK_API SBUIPasscodeLockViewSimple4DigitKeypad : public UIView {
public:
    explicit SBUIPasscodeLockViewSimple4DigitKeypad(const CGRect& frame) : UIView(frame) {}
    ~SBUIPasscodeLockViewSimple4DigitKeypad() override;

    void setDelegate(std::weak_ptr<SBUIPasscodeLockViewDelegate> delegate) {
        delegate_ = std::move(delegate);
    }
    /// The digits entered so far.
    const std::string& passcode() const { return passcode_; }
    /// Clears the digits.
    void reset();
    /// Clears the digits and shakes.
    void resetForFailedPasscode();
    void _setStatusText(std::string text);
    const std::string& _statusText() const { return statusText_; }
    /// Returns "Enter Passcode".
    std::string _defaultStatusText() const;
    /// Shows the text, and the subtitle below it (empty for none).
    void updateStatusText(std::string text, std::string subtitle, bool animated);
    bool showsEmergencyCallButton() const { return showsEmergencyCallButton_; }
    void setShowsEmergencyCallButton(bool shows);
    double backgroundAlpha() const { return backgroundAlpha_; }
    void setBackgroundAlpha(double alpha);

    /// What a person sees besides.
    const std::string& shownText() const { return shownText_; }
    const std::string& shownSubtitle() const { return shownSubtitle_; }
    /// Counts the failures shown, so that a front end shakes once for each.
    int failures() const { return failures_; }
    bool takesInput() const { return alpha() > 0; }

    /// What a person does. `digit` is 0 to 9; anything else is ignored.
    void pressDigit(int digit);
    void pressDelete();
    void pressCancel();
    /// No effect while the button is not shown.
    void pressEmergencyCall();
    /// The second way of entry: a whole passcode recognised by other means. It has to be four digits here
    /// too, since any other passcode could never be typed again.
    void enterViaMesa(std::string passcode);
    /// Returns whether the text is a passcode of this keypad: four digits.
    static bool isPasscode(std::string_view text);

private:
    std::weak_ptr<SBUIPasscodeLockViewDelegate> delegate_;
    std::string passcode_;
    std::string statusText_;
    std::string shownText_;
    std::string shownSubtitle_;
    bool showsEmergencyCallButton_ = true;
    double backgroundAlpha_ = 1;
    int failures_ = 0;
};

/// The class methods of "SBUIPasscodeLockViewFactory".
class WARDLOCK_API SBUIPasscodeLockViewFactory : public Object {
public:
    ~SBUIPasscodeLockViewFactory() override;
    /// Style 0: the simple four-digit keypad, the size of the screen; null for other styles.
    virtual std::shared_ptr<SBUIPasscodeLockViewSimple4DigitKeypad> passcodeLockViewForStyle(int style) = 0;
};

} // namespace platform
