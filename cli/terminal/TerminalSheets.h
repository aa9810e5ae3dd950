#pragma once

#include "cli/io/SettingsLoop.h"
#include "cli/terminal/TerminalDialog.h"
#include "shell/SettingsApplication.h"

#include <memory>
#include <string>

namespace wardlock::cli {

/// What lies over the pages, in a terminal: the keypad, an alert, the mail sheet. Each call shows it, asks
/// once and does what was answered.
class TerminalSheets {
public:
    TerminalSheets(shell::SettingsApplication& settings, SettingsLoop& loop, TerminalDialog& dialog)
        : settings_(settings), loop_(loop), dialog_(dialog) {}

    /// Whether there was anything to ask for.
    bool ask();
    /// Tells a person who is asked for digits that the keypad closes: Settings were left. What is typed then
    /// goes to nobody.
    void followKeypad();

private:
    void askKeypad(const shell::Overlay& overlay);
    void enter(const std::string& digits, const shell::Overlay& overlay);
    void askAlert(const platform::UIAlertController& alert);
    void askAlertText(const platform::UIAlertController& alert, std::size_t field);
    void askMail(const platform::MFMailComposeViewController& composer);
    void showMail(const platform::MailMessage& message);
    void obeyOnMail(const std::string& word);
    void askBody();
    void waitForMail();

    shell::SettingsApplication& settings_;
    SettingsLoop& loop_;
    TerminalDialog& dialog_;
    /// Whose digits are being asked for; null while they are not.
    std::shared_ptr<platform::SBUIPasscodeLockViewSimple4DigitKeypad> asked_;
};

} // namespace wardlock::cli
