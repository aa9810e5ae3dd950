#pragma once

#include "shell/input/InputResult.h"
#include "shell/screen/Screen.h"
#include "shell/screen/ShownAccount.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wardlock::shell {

/// What the user can do with what is over the pages: the keypad, an alert, the mail sheet. Each call returns
/// the reason when it is refused. Nothing is thrown: an exception of a page ends the process. Main thread
/// only.
class SheetInput {
public:
    SheetInput(Screen& screen, ShownAccount& account, PageBoundary& boundary)
        : screen_(screen), account_(account), boundary_(boundary) {}

    /// 0 to 9.
    InputResult pressDigit(int digit);
    InputResult pressDelete();
    InputResult cancelKeypad();
    InputResult pressEmergency();
    /// The keypad's second input: a whole passcode of four digits, recognised by other means.
    InputResult enterPasscode(std::string passcode);

    /// Replaces the text of the alert's field by `text`, taken as one line.
    InputResult typeIntoAlert(std::size_t field, std::string text);
    InputResult chooseAlertAction(std::size_t action);

    InputResult setRecipients(std::vector<std::string> recipients);
    InputResult setSubject(std::string subject);
    InputResult setBody(std::string body);
    InputResult removeAttachment(std::size_t index);
    /// The sheet stays until the outcome of the mail is known, which Screen::notice() then shows.
    InputResult sendMail();
    InputResult cancelMail();

private:
    template <class Press>
    InputResult onKeypad(Press press);
    template <class Do>
    InputResult onAlert(Do act);
    template <class Do>
    InputResult onComposer(Do act);

    Screen& screen_;
    ShownAccount& account_;
    PageBoundary& boundary_;
};

} // namespace wardlock::shell
