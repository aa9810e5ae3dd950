#include "platform/services/PasscodeLockView.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {

constexpr std::size_t digitCount = 4;

} // namespace

SBUIPasscodeLockViewDelegate::~SBUIPasscodeLockViewDelegate() = default;
SBUIPasscodeLockViewFactory::~SBUIPasscodeLockViewFactory() = default;
SBUIPasscodeLockViewSimple4DigitKeypad::~SBUIPasscodeLockViewSimple4DigitKeypad() = default;

void SBUIPasscodeLockViewSimple4DigitKeypad::reset() {
    passcode_.clear();
    changed();
}

void SBUIPasscodeLockViewSimple4DigitKeypad::resetForFailedPasscode() {
    ++failures_;
    reset();
}

void SBUIPasscodeLockViewSimple4DigitKeypad::_setStatusText(std::string text) {
    statusText_ = std::move(text);
}

std::string SBUIPasscodeLockViewSimple4DigitKeypad::_defaultStatusText() const {
    return "Enter Passcode";
}

void SBUIPasscodeLockViewSimple4DigitKeypad::updateStatusText(std::string text, std::string subtitle, bool) {
    shownText_ = std::move(text);
    shownSubtitle_ = std::move(subtitle);
    changed();
}

void SBUIPasscodeLockViewSimple4DigitKeypad::setShowsEmergencyCallButton(bool shows) {
    showsEmergencyCallButton_ = shows;
    changed();
}

void SBUIPasscodeLockViewSimple4DigitKeypad::setBackgroundAlpha(double alpha) {
    backgroundAlpha_ = alpha;
    changed();
}

void SBUIPasscodeLockViewSimple4DigitKeypad::pressDigit(int digit) {
    if (!takesInput() || digit < 0 || digit > 9 || passcode_.size() >= digitCount)
        return;
    const auto keepAlive = shared_from_this();
    passcode_ += static_cast<char>('0' + digit);
    changed();
    if (passcode_.size() < digitCount)
        return;
    if (const auto delegate = delegate_.lock())
        delegate->passcodeLockViewPasscodeEntered(*this);
}

void SBUIPasscodeLockViewSimple4DigitKeypad::pressDelete() {
    if (!takesInput() || passcode_.empty())
        return;
    passcode_.pop_back();
    changed();
}

void SBUIPasscodeLockViewSimple4DigitKeypad::pressCancel() {
    if (!takesInput())
        return;
    const auto keepAlive = shared_from_this();
    if (const auto delegate = delegate_.lock())
        delegate->passcodeLockViewCancelButtonPressed(*this);
}

void SBUIPasscodeLockViewSimple4DigitKeypad::pressEmergencyCall() {
    if (!takesInput() || !showsEmergencyCallButton_)
        return;
    const auto keepAlive = shared_from_this();
    if (const auto delegate = delegate_.lock())
        delegate->passcodeLockViewEmergencyCallButtonPressed(*this);
}

void SBUIPasscodeLockViewSimple4DigitKeypad::enterViaMesa(std::string passcode) {
    if (!takesInput() || !isPasscode(passcode))
        return;
    const auto keepAlive = shared_from_this();
    passcode_ = std::move(passcode);
    changed();
    if (const auto delegate = delegate_.lock())
        delegate->passcodeLockViewPasscodeEnteredViaMesa(*this);
}

bool SBUIPasscodeLockViewSimple4DigitKeypad::isPasscode(std::string_view text) {
    return text.size() == digitCount &&
           std::ranges::all_of(text, [](char digit) { return digit >= '0' && digit <= '9'; });
}

} // namespace platform
