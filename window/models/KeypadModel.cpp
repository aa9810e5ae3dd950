#include "window/models/KeypadModel.h"

#include "window/models/IgnoredResult.h"
#include "window/models/Text.h"

namespace wardlock::window {

QString KeypadModel::statusText() const {
    return shownText(overlay_.keypad->shownText());
}

QString KeypadModel::subtitle() const {
    return shownText(overlay_.keypad->shownSubtitle());
}

int KeypadModel::digitCount() const {
    return static_cast<int>(overlay_.keypad->passcode().size());
}

bool KeypadModel::showsEmergency() const {
    return overlay_.keypad->showsEmergencyCallButton();
}

int KeypadModel::failures() const {
    return overlay_.keypad->failures();
}

double KeypadModel::opacity() const {
    return overlay_.keypad->presentationAlpha();
}

double KeypadModel::blurOpacity() const {
    return overlay_.blur ? overlay_.blur->presentationAlpha() : 0;
}

bool KeypadModel::isFading() const {
    return opacity() != overlay_.keypad->alpha() ||
           (overlay_.blur && blurOpacity() != overlay_.blur->alpha());
}

void KeypadModel::pressDigit(int digit) {
    ignoreResult(input_.pressDigit(digit));
}

void KeypadModel::pressDelete() {
    ignoreResult(input_.pressDelete());
}

void KeypadModel::pressCancel() {
    ignoreResult(input_.cancelKeypad());
}

void KeypadModel::pressEmergency() {
    ignoreResult(input_.pressEmergency());
}

} // namespace wardlock::window
