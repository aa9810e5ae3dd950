#pragma once

#include "cli/io/SettingsLoop.h"
#include "cli/terminal/TerminalDialog.h"
#include "shell/SettingsApplication.h"

#include <memory>
#include <string>

namespace wardlock::cli {

/// The keypad, alerts and the mail sheet in a terminal. Each call shows the topmost one, prompts once and
/// carries out what is typed.
class TerminalSheets {
public:
    TerminalSheets(shell::SettingsApplication& settings, SettingsLoop& loop, TerminalDialog& dialog)
        : settings_(settings), loop_(loop), dialog_(dialog) {}

    /// Prompts for the topmost sheet. Returns false when none is shown.
    bool ask();
    /// Prints that the keypad was closed while the user was asked for digits, because Settings resigned
    /// active. What is typed afterwards is discarded.
    void followKeypad();

private:
    void askKeypad(const shell::Overlay& overlay);
    void enter(const std::string& digits, const shell::Overlay& overlay);
    void askAlert(const platform::UIAlertController& alert);
    void askAlertText(const platform::UIAlertController& alert, std::size_t field);
    void askMail(const platform::MFMailComposeViewController& composer);
    void showMail(const platform::MailMessage& message);
    void runMailCommand(const std::string& word);
    void askBody();
    void waitForMail();

    shell::SettingsApplication& settings_;
    SettingsLoop& loop_;
    TerminalDialog& dialog_;
    /// The keypad whose digits are being asked for; null otherwise.
    std::shared_ptr<platform::SBUIPasscodeLockViewSimple4DigitKeypad> asked_;
};

} // namespace wardlock::cli
