#pragma once

#include "platform/services/PasscodeLockView.h"
#include "platform/ui/UIVisualEffectView.h"

#include <memory>

namespace wardlock::shell {

/// The keypad over everything else, with what a person sees of it: its status text and subtitle, how many
/// digits are entered, how often it has failed, whether it shows its emergency button, and how far it and the
/// blur beneath it have faded in (their presentationAlpha()).
struct Overlay {
    std::shared_ptr<platform::SBUIPasscodeLockViewSimple4DigitKeypad> keypad;
    /// Null for none.
    std::shared_ptr<platform::UIVisualEffectView> blur;
};

} // namespace wardlock::shell
