#pragma once

#include "platform/services/PasscodeLockView.h"
#include "platform/ui/UIVisualEffectView.h"

#include <memory>

namespace wardlock::shell {

/// The keypad over everything else, with what the user sees of it: its status text and subtitle, the number
/// of entered digits and of failures, whether it shows its emergency button. Keypad and blur have faded in as
/// far as their presentationAlpha().
struct Overlay {
    std::shared_ptr<platform::SBUIPasscodeLockViewSimple4DigitKeypad> keypad;
    /// Null for none.
    std::shared_ptr<platform::UIVisualEffectView> blur;
};

} // namespace wardlock::shell
