#pragma once

#include "cli/io/LineReader.h"
#include "cli/io/Signals.h"

#include <string>
#include <string_view>

namespace wardlock::cli {

/// Reads passcodes: from the terminal after a prompt, without showing what is typed, or line by line from
/// standard input. SIGINT, SIGTERM and SIGHUP end the entry with a CommandError, and the terminal has its
/// former settings then.
class PasscodeEntry {
public:
    PasscodeEntry();

    /// Returns what was entered. Throws CommandError (Failed) when the input ends.
    std::string read(std::string_view prompt);
    /// The same for a passcode to store: four digits. Throws CommandError (Failed) for anything else.
    std::string readNew(std::string_view prompt);

    /// Returns how often a wrong passcode may be entered: a line of a script is not a mistyped one.
    int attempts() const { return fromTerminal_ ? attemptsOnTerminal : 1; }

private:
    /// As many as the keypad takes.
    static constexpr int attemptsOnTerminal = 4;

    bool waitForInput(int descriptor);

    const bool fromTerminal_;
    Signals stop_;
    LineReader lines_;
};

} // namespace wardlock::cli
