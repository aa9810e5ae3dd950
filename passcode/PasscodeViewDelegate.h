#pragma once

#include <string>

namespace wardlock {

class PasscodeView;

/// Receives the events of a PasscodeView. Optional methods: empty unless overridden. The view does not retain
/// its delegate, and is alive during each call.
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
