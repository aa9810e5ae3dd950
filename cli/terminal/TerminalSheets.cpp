#include "cli/terminal/TerminalSheets.h"

#include "cli/io/MailAddresses.h"
#include "cli/io/Output.h"
#include "cli/io/TextWidth.h"

#include <utility>

namespace wardlock::cli {

namespace {

/// Longer than any fade.
constexpr std::chrono::seconds fadeTimeout{5};
/// The user may have to choose a mail program first.
constexpr std::chrono::minutes mailTimeout{10};

} // namespace

bool TerminalSheets::ask() {
    const shell::Screen& screen = settings_.screen();
    if (const auto overlay = screen.overlay())
        askKeypad(*overlay);
    else if (const auto alert = screen.alert())
        askAlert(*alert);
    else if (const auto composer = screen.composer())
        askMail(*composer);
    else
        return false;
    return true;
}

void TerminalSheets::askKeypad(const shell::Overlay& overlay) {
    if (!overlay.keypad->takesInput()) {
        loop_.waitUntil([&] { return !settings_.screen().overlay(); }, fadeTimeout);
        return;
    }
    Output::line("");
    Output::line(dialog_.style().bold(printable(overlay.keypad->shownText())));
    if (!overlay.keypad->shownSubtitle().empty())
        dialog_.print(overlay.keypad->shownSubtitle());
    asked_ = overlay.keypad;
    const auto digits = dialog_.askHidden("Four digits (Enter cancels): ");
    if (!std::exchange(asked_, nullptr))
        return;
    if (!digits || digits->empty())
        static_cast<void>(settings_.sheets().cancelKeypad());
    else if (*digits == "z")
        settings_.resignActive();
    else if (platform::SBUIPasscodeLockViewSimple4DigitKeypad::isPasscode(*digits))
        enter(*digits, overlay);
    else
        dialog_.printError("A passcode has four digits.");
}

void TerminalSheets::followKeypad() {
    if (!asked_ || asked_->takesInput())
        return;
    asked_ = nullptr;
    Output::text("\nThe keypad was closed. Press Enter to continue: ");
    Output::flush();
}

void TerminalSheets::enter(const std::string& digits, const shell::Overlay& overlay) {
    const int failures = overlay.keypad->failures();
    for (const char digit : digits) {
        const auto pressed = settings_.sheets().pressDigit(digit - '0');
        if (!pressed)
            return dialog_.printRefusal(pressed);
    }
    if (overlay.keypad->failures() > failures)
        dialog_.printError("Wrong passcode.");
}

void TerminalSheets::askAlert(const platform::UIAlertController& alert) {
    const TextStyle& style = dialog_.style();
    Output::line("");
    Output::line(style.bold(printable(alert.title())));
    if (!alert.message().empty())
        dialog_.print(alert.message());
    std::size_t number = 0;
    for (const auto& field : alert.textFields())
        Output::line("  " + std::to_string(++number) + "  " + printable(field->placeholder()) + ": " +
                     printable(field->text()));
    for (const auto& action : alert.actions()) {
        const std::string title = printable(action->title());
        const bool red = action->style() == platform::UIAlertActionStyle::Destructive;
        Output::line("  " + std::to_string(++number) + "  " + (red ? style.red(title) : title) +
                     (action->isEnabled() ? "" : " (disabled)"));
    }
    const auto word = dialog_.ask("Number: ");
    const auto chosen = word ? wholeNumber(*word) : std::nullopt;
    const std::size_t fields = alert.textFields().size();
    if (!word || word->empty())
        return;
    if (!chosen || *chosen == 0 || *chosen > number)
        dialog_.printError("Type a number from 1 to " + std::to_string(number) + ".");
    else if (*chosen <= fields)
        askAlertText(alert, *chosen - 1);
    else
        dialog_.printRefusal(settings_.sheets().chooseAlertAction(*chosen - 1 - fields));
}

void TerminalSheets::askAlertText(const platform::UIAlertController& alert, std::size_t field) {
    const auto text = dialog_.askText(printable(alert.textFields()[field]->placeholder()) + ": ");
    if (text)
        dialog_.printRefusal(settings_.sheets().typeIntoAlert(field, *text));
}

void TerminalSheets::showMail(const platform::MailMessage& message) {
    const TextStyle& style = dialog_.style();
    Output::line("");
    Output::line(style.bold("New Mail"));
    Output::line("  1  To: " + printable(joinedAddresses(message.recipients)));
    Output::line("  2  Subject: " + printable(message.subject));
    Output::line("  3  Text:");
    dialog_.print(message.body);
    for (std::size_t index = 0; index < message.attachments.size(); ++index)
        Output::line("  " + std::to_string(index + 4) +
                     "  Attached: " + printable(message.attachments[index].fileName) + ", " +
                     std::to_string(message.attachments[index].data.size()) + " bytes");
}

void TerminalSheets::askMail(const platform::MFMailComposeViewController& composer) {
    if (composer.isSending())
        return waitForMail();
    showMail(composer.message());
    const auto word = dialog_.ask("Number to edit a field or remove an attachment, s to send, c to cancel: ");
    if (!word)
        static_cast<void>(settings_.sheets().cancelMail());
    else
        runMailCommand(*word);
}

void TerminalSheets::runMailCommand(const std::string& word) {
    shell::SheetInput& sheets = settings_.sheets();
    if (word == "s")
        return dialog_.printRefusal(sheets.sendMail());
    if (word == "c")
        return dialog_.printRefusal(sheets.cancelMail());
    const std::size_t number = wholeNumber(word).value_or(0);
    if (number == 1) {
        if (const auto text = dialog_.ask("To: "))
            dialog_.printRefusal(sheets.setRecipients(addressesIn(*text)));
    } else if (number == 2) {
        if (const auto text = dialog_.ask("Subject: "))
            dialog_.printRefusal(sheets.setSubject(*text));
    } else if (number == 3) {
        askBody();
    } else if (number > 3) {
        dialog_.printRefusal(sheets.removeAttachment(number - 4));
    } else if (!word.empty()) {
        dialog_.printError("Type a number, s or c.");
    }
}

void TerminalSheets::askBody() {
    Output::line("Type the new text. A line with only a full stop ends it.");
    std::string body;
    while (const auto line = dialog_.askText("")) {
        if (*line == ".") {
            dialog_.printRefusal(settings_.sheets().setBody(body));
            return;
        }
        body += *line + '\n';
    }
}

void TerminalSheets::waitForMail() {
    Output::line("Sending\u2026");
    Output::flush();
    const bool done = loop_.waitUntil(
        [&] {
            const auto composer = settings_.screen().composer();
            return !composer || !composer->isSending();
        },
        mailTimeout);
    if (!done)
        dialog_.end();
}

} // namespace wardlock::cli
