#include "shell/input/SheetInput.h"

#include "shell/screen/OneLine.h"

#include <utility>

namespace wardlock::shell {

using Keypad = platform::SBUIPasscodeLockViewSimple4DigitKeypad;
using Alert = platform::UIAlertController;
using Composer = platform::MFMailComposeViewController;

template <class Press>
Answer SheetInput::onKeypad(Press press) {
    return door_.enter([&] {
        const auto overlay = screen_.overlay();
        if (!overlay)
            return Answer::refused("there is no keypad");
        if (!overlay->keypad->takesInput())
            return Answer::refused("the keypad is fading out");
        return press(*overlay->keypad);
    });
}

Answer SheetInput::pressDigit(int digit) {
    return onKeypad([&](Keypad& keypad) {
        if (digit < 0 || digit > 9)
            return Answer::refused("the keypad has the digits 0 to 9");
        keypad.pressDigit(digit);
        return Answer::done();
    });
}

Answer SheetInput::pressDelete() {
    return onKeypad([](Keypad& keypad) {
        keypad.pressDelete();
        return Answer::done();
    });
}

Answer SheetInput::cancelKeypad() {
    return onKeypad([](Keypad& keypad) {
        keypad.pressCancel();
        return Answer::done();
    });
}

Answer SheetInput::pressEmergency() {
    return onKeypad([](Keypad& keypad) {
        if (!keypad.showsEmergencyCallButton())
            return Answer::refused("the keypad shows no emergency button");
        keypad.pressEmergencyCall();
        return Answer::done();
    });
}

Answer SheetInput::enterPasscode(std::string passcode) {
    return onKeypad([&](Keypad& keypad) {
        if (!Keypad::isPasscode(passcode))
            return Answer::refused("a passcode is four digits");
        keypad.enterViaMesa(std::move(passcode));
        return Answer::done();
    });
}

template <class Do>
Answer SheetInput::onAlert(Do act) {
    return door_.enter([&] {
        const auto alert = screen_.alert();
        if (!alert)
            return Answer::refused("there is no alert");
        if (const auto why = screen_.obstacleToSheets())
            return Answer::refused(*why);
        return act(*alert);
    });
}

Answer SheetInput::typeIntoAlert(std::size_t field, std::string text) {
    return onAlert([&](Alert& alert) {
        if (field >= alert.textFields().size())
            return Answer::refused("the alert has no such text field");
        alert.textFields()[field]->edit(oneLine(std::move(text)));
        return Answer::done();
    });
}

Answer SheetInput::chooseAlertAction(std::size_t action) {
    return onAlert([&](Alert& alert) {
        if (action >= alert.actions().size())
            return Answer::refused("the alert has no such button");
        const auto chosen = alert.actions()[action];
        if (!chosen->isEnabled())
            return Answer::refused("the button is disabled");
        if (account_.leaveIfGone())
            return Answer::refused("the page is gone");
        alert.choose(chosen);
        return Answer::done();
    });
}

template <class Do>
Answer SheetInput::onComposer(Do act) {
    return door_.enter([&] {
        const auto composer = screen_.composer();
        if (!composer)
            return Answer::refused("there is no mail sheet");
        if (const auto why = screen_.obstacleToSheets())
            return Answer::refused(*why);
        if (composer->isSending())
            return Answer::refused("the mail is being sent");
        return act(*composer);
    });
}

Answer SheetInput::setRecipients(std::vector<std::string> recipients) {
    return onComposer([&](Composer& composer) {
        composer.setToRecipients(std::move(recipients));
        return Answer::done();
    });
}

Answer SheetInput::setSubject(std::string subject) {
    return onComposer([&](Composer& composer) {
        composer.setSubject(std::move(subject));
        return Answer::done();
    });
}

Answer SheetInput::setBody(std::string body) {
    return onComposer([&](Composer& composer) {
        composer.setMessageBody(std::move(body), composer.message().isHTML);
        return Answer::done();
    });
}

Answer SheetInput::removeAttachment(std::size_t index) {
    return onComposer([&](Composer& composer) {
        if (index >= composer.message().attachments.size())
            return Answer::refused("the mail has no such attachment");
        composer.removeAttachment(index);
        return Answer::done();
    });
}

Answer SheetInput::sendMail() {
    return onComposer([](Composer& composer) {
        composer.send();
        return Answer::done();
    });
}

Answer SheetInput::cancelMail() {
    return onComposer([](Composer& composer) {
        composer.cancel();
        return Answer::done();
    });
}

} // namespace wardlock::shell
