#pragma once

#include "cli/io/LineReader.h"
#include "cli/io/SettingsLoop.h"
#include "cli/terminal/TextStyle.h"
#include "shell/input/InputResult.h"

#include <optional>
#include <string>
#include <string_view>

namespace wardlock::cli {

/// Questions and answers in a terminal.
class TerminalDialog {
public:
    TerminalDialog(SettingsLoop& loop, TextStyle style);

    /// The answer without blanks around it; none at the end of the input, which isOver() then tells.
    std::optional<std::string> ask(const std::string& prompt);
    /// What is typed is not shown.
    std::optional<std::string> askHidden(const std::string& prompt);
    /// As typed, blanks and all.
    std::optional<std::string> askText(const std::string& prompt);

    void tellError(const std::string& sentence);
    void tell(const shell::InputResult& answer);
    /// Breaks long lines.
    void say(const std::string& text);

    bool isOver() const { return over_; }
    void end() { over_ = true; }
    /// The question that waits for its answer now; empty while none does.
    const std::string& prompt() const { return prompt_; }
    const TextStyle& style() const { return style_; }

private:
    TextStyle style_;
    LineReader input_;
    std::string prompt_;
    bool over_ = false;
};

/// The number that the whole word is; none for anything else.
std::optional<std::size_t> wholeNumber(std::string_view word);
std::optional<double> decimalNumber(std::string_view word);

} // namespace wardlock::cli
