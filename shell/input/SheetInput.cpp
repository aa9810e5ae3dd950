#include "shell/input/SheetInput.h"

#include "shell/screen/OneLine.h"

#include <utility>

namespace wardlock::shell {

using Keypad = platform::SBUIPasscodeLockViewSimple4DigitKeypad;
using Alert = platform::UIAlertController;
using Composer = platform::MFMailComposeViewController;

template <class Press>
InputResult SheetInput::onKeypad(Press press) {
    return boundary_.enterForUser([&] {
        const auto overlay = screen_.overlay();
        if (!overlay)
            return InputResult::refused("no keypad is shown");
        if (!overlay->keypad->takesInput())
            return InputResult::refused("the keypad is fading out");
        return press(*overlay->keypad);
    });
}

InputResult SheetInput::pressDigit(int digit) {
    return onKeypad([&](Keypad& keypad) {
        if (digit < 0 || digit > 9)
            return InputResult::refused("a digit is 0 to 9");
        keypad.pressDigit(digit);
        return InputResult::done();
    });
}

InputResult SheetInput::pressDelete() {
    return onKeypad([](Keypad& keypad) {
        keypad.pressDelete();
        return InputResult::done();
    });
}

InputResult SheetInput::cancelKeypad() {
    return onKeypad([](Keypad& keypad) {
        keypad.pressCancel();
        return InputResult::done();
    });
}

InputResult SheetInput::pressEmergency() {
    return onKeypad([](Keypad& keypad) {
        if (!keypad.showsEmergencyCallButton())
            return InputResult::refused("the keypad shows no emergency button");
        keypad.pressEmergencyCall();
        return InputResult::done();
    });
}

InputResult SheetInput::enterPasscode(std::string passcode) {
    return onKeypad([&](Keypad& keypad) {
        if (!Keypad::isPasscode(passcode))
            return InputResult::refused("a passcode has four digits");
        keypad.enterViaMesa(std::move(passcode));
        return InputResult::done();
    });
}

template <class Do>
InputResult SheetInput::onAlert(Do act) {
    return boundary_.enterForUser([&] {
        const auto alert = screen_.alert();
        if (!alert)
            return InputResult::refused("no alert is shown");
        if (const auto reason = screen_.obstacleToSheets())
            return InputResult::refused(*reason);
        return act(*alert);
    });
}

InputResult SheetInput::typeIntoAlert(std::size_t field, std::string text) {
    return onAlert([&](Alert& alert) {
        if (field >= alert.textFields().size())
            return InputResult::refused("the alert has no such text field");
        alert.textFields()[field]->edit(oneLine(std::move(text)));
        return InputResult::done();
    });
}

InputResult SheetInput::chooseAlertAction(std::size_t action) {
    return onAlert([&](Alert& alert) {
        if (action >= alert.actions().size())
            return InputResult::refused("the alert has no such button");
        const auto chosen = alert.actions()[action];
        if (!chosen->isEnabled())
            return InputResult::refused("the button is disabled");
        if (account_.leaveIfGone())
            return InputResult::refused("the page is gone");
        alert.choose(chosen);
        return InputResult::done();
    });
}

template <class Do>
InputResult SheetInput::onComposer(Do act) {
    return boundary_.enterForUser([&] {
        const auto composer = screen_.composer();
        if (!composer)
            return InputResult::refused("no mail sheet is shown");
        if (const auto reason = screen_.obstacleToSheets())
            return InputResult::refused(*reason);
        if (composer->isSending())
            return InputResult::refused("the mail is being sent");
        return act(*composer);
    });
}

InputResult SheetInput::setRecipients(std::vector<std::string> recipients) {
    return onComposer([&](Composer& composer) {
        composer.setToRecipients(std::move(recipients));
        return InputResult::done();
    });
}

InputResult SheetInput::setSubject(std::string subject) {
    return onComposer([&](Composer& composer) {
        composer.setSubject(std::move(subject));
        return InputResult::done();
    });
}

InputResult SheetInput::setBody(std::string body) {
    return onComposer([&](Composer& composer) {
        composer.setMessageBody(std::move(body), composer.message().isHTML);
        return InputResult::done();
    });
}

InputResult SheetInput::removeAttachment(std::size_t index) {
    return onComposer([&](Composer& composer) {
        if (index >= composer.message().attachments.size())
            return InputResult::refused("the mail has no such attachment");
        composer.removeAttachment(index);
        return InputResult::done();
    });
}

InputResult SheetInput::sendMail() {
    return onComposer([](Composer& composer) {
        composer.send();
        return InputResult::done();
    });
}

InputResult SheetInput::cancelMail() {
    return onComposer([](Composer& composer) {
        composer.cancel();
        return InputResult::done();
    });
}

} // namespace wardlock::shell
