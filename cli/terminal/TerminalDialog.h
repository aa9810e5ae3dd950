#pragma once

#include "cli/io/LineReader.h"
#include "cli/io/SettingsLoop.h"
#include "cli/terminal/TextStyle.h"
#include "cli/terminal/TypedLine.h"
#include "shell/input/InputResult.h"

#include <optional>
#include <string>
#include <string_view>

namespace wardlock::cli {

/// Prompts in a terminal, and what is typed at them.
class TerminalDialog {
public:
    TerminalDialog(SettingsLoop& loop, TextStyle style);

    /// Prints the prompt and returns the typed line without blanks around it. Returns none at the end of the
    /// input; isOver() is true then.
    std::optional<std::string> ask(const std::string& prompt);
    /// As ask(), without showing what is typed.
    std::optional<std::string> askHidden(const std::string& prompt);
    /// As ask(), with all blanks.
    std::optional<std::string> askText(const std::string& prompt);

    /// Prints the prompt that waits, after other output, with what has been typed.
    void repeatPrompt();

    void printError(const std::string& sentence);
    /// Prints why the input was refused; nothing when it was not.
    void printRefusal(const shell::InputResult& result);
    /// Prints a text, and breaks long lines.
    void print(const std::string& text);

    bool isOver() const { return over_; }
    void end() { over_ = true; }
    /// Returns the prompt that waits for a reply; empty when none does.
    const std::string& prompt() const { return prompt_; }
    const TextStyle& style() const { return style_; }

private:
    TextStyle style_;
    LineReader input_;
    std::string prompt_;
    std::optional<TypedLine> typed_;
    bool over_ = false;
};

/// Returns the number in the word; none when the word is not a number as a whole.
std::optional<std::size_t> wholeNumber(std::string_view word);
std::optional<double> decimalNumber(std::string_view word);

} // namespace wardlock::cli
