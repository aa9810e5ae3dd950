#pragma once

#include "shell/input/Answer.h"
#include "shell/screen/Screen.h"
#include "shell/screen/ShownAccount.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wardlock::shell {

/// What a person can do with what lies over the pages: the keypad, an alert, the mail sheet. Each call
/// answers why not when a person could not. Nothing is thrown: an exception of a page ends the process. Main
/// thread only.
class SheetInput {
public:
    SheetInput(Screen& screen, ShownAccount& account, Door& door)
        : screen_(screen), account_(account), door_(door) {}

    /// 0 to 9.
    Answer pressDigit(int digit);
    Answer pressDelete();
    Answer cancelKeypad();
    Answer pressEmergency();
    /// The second way to enter: a whole passcode, four digits, recognised otherwise.
    Answer enterPasscode(std::string passcode);

    /// The whole text as it stands in the alert's field now, taken as one line.
    Answer typeIntoAlert(std::size_t field, std::string text);
    Answer chooseAlertAction(std::size_t action);

    Answer setRecipients(std::vector<std::string> recipients);
    Answer setSubject(std::string subject);
    Answer setBody(std::string body);
    Answer removeAttachment(std::size_t index);
    /// The sheet stays until the mail's way is known; Screen::notice() then tells it.
    Answer sendMail();
    Answer cancelMail();

private:
    template <class Press>
    Answer onKeypad(Press press);
    template <class Do>
    Answer onAlert(Do act);
    template <class Do>
    Answer onComposer(Do act);

    Screen& screen_;
    ShownAccount& account_;
    Door& door_;
};

} // namespace wardlock::shell
