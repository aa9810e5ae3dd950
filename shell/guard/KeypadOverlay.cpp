#include "shell/guard/KeypadOverlay.h"

#include "platform/runtime/Class.h"
#include "platform/services/DeviceInformation.h"

#include <utility>

namespace wardlock::shell {

namespace {

constexpr double fadeSeconds = 0.4;
constexpr int simpleFourDigitStyle = 0;

std::shared_ptr<KeypadOverlay::Keypad> newKeypad() {
    const auto* factory = platform::objc_getClass("SBUIPasscodeLockViewFactory");
    return factory->classMethods<platform::SBUIPasscodeLockViewFactory>()->passcodeLockViewForStyle(
        simpleFourDigitStyle);
}

} // namespace

std::shared_ptr<KeypadOverlay> KeypadOverlay::showOn(platform::UIWindow& window, Entered entered,
                                                     Cancelled cancelled) {
    std::shared_ptr<KeypadOverlay> overlay(new KeypadOverlay(
        platform::DeviceInformation::current().screenBounds(), std::move(entered), std::move(cancelled)));
    overlay->create();
    window.addSubview(overlay);
    return overlay;
}

KeypadOverlay::KeypadOverlay(const platform::CGRect& frame, Entered entered, Cancelled cancelled)
    : UIView(frame), entered_(std::move(entered)), cancelled_(std::move(cancelled)), keypad_(newKeypad()),
      blur_(std::make_shared<platform::UIVisualEffectView>(
          platform::UIBlurEffect::effectWithStyle(platform::UIBlurEffectStyle::Dark))) {}

KeypadOverlay::~KeypadOverlay() = default;

void KeypadOverlay::create() {
    blur_->setFrame(bounds());
    blur_->setAlpha(0);
    addSubview(blur_);
    keypad_->setAlpha(0);
    keypad_->setBackgroundAlpha(0);
    keypad_->setShowsEmergencyCallButton(false);
    keypad_->_setStatusText(keypad_->_defaultStatusText());
    keypad_->updateStatusText(keypad_->_defaultStatusText(), "", true);
    keypad_->setDelegate(self(this));
    addSubview(keypad_);
    setShown(true, {});
}

void KeypadOverlay::setShown(bool shown, std::function<void(bool finished)> ended) {
    const auto setAlphas = [this, alpha = shown ? 1.0 : 0.0] {
        keypad_->setAlpha(alpha);
        blur_->setAlpha(alpha);
    };
    animateWithDuration(fadeSeconds, setAlphas, std::move(ended));
}

void KeypadOverlay::reject() {
    keypad_->resetForFailedPasscode();
}

void KeypadOverlay::takeDown() {
    // The fade owns the view: its owner may release it meanwhile.
    setShown(false, [view = self(this)](bool /*finished*/) { view->removeFromSuperview(); });
}

void KeypadOverlay::passcodeLockViewPasscodeEntered(Keypad& keypad) {
    const auto alive = shared_from_this();
    // A copy: the entry may clear the keypad.
    const std::string digits = keypad.passcode();
    entered_(digits);
}

void KeypadOverlay::passcodeLockViewPasscodeEnteredViaMesa(Keypad& keypad) {
    passcodeLockViewPasscodeEntered(keypad);
}

void KeypadOverlay::passcodeLockViewCancelButtonPressed(Keypad& /*keypad*/) {
    const auto alive = shared_from_this();
    cancelled_();
}

} // namespace wardlock::shell
