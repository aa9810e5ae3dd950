#pragma once

#include <string>

namespace wardlock {

class PasscodeView;

/// Whoever shows a PasscodeView hears of it here. Optional methods: empty unless overridden. Not retained by
/// the view, which is alive during each call.
class PasscodeViewDelegate {
public:
    virtual ~PasscodeViewDelegate() = default;

    /// Four digits were entered.
    virtual void passcodeViewEnteredPasscode(PasscodeView& /*view*/, const std::string& /*passcode*/) {}
    virtual void passcodeDidCancel(PasscodeView& /*view*/) {}
    virtual void passcodeDidPressEmergency(PasscodeView& /*view*/) {}
    /// The view is hidden, empty and out of its superview.
    virtual void passcodeViewDidDestroy(PasscodeView& /*view*/) {}
};

} // namespace wardlock
