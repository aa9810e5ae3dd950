#include "cli/terminal/TerminalDialog.h"

#include "cli/io/Output.h"
#include "cli/io/Refusal.h"
#include "cli/io/Terminal.h"
#include "cli/io/TextWidth.h"

#include <charconv>
#include <unistd.h>

namespace wardlock::cli {

namespace {

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t");
    return first == std::string::npos ? std::string()
                                      : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

template <class Number>
std::optional<Number> numberIn(std::string_view word) {
    Number number{};
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    return error == std::errc() && end == word.data() + word.size() ? std::optional(number) : std::nullopt;
}

} // namespace

TerminalDialog::TerminalDialog(SettingsLoop& loop, TextStyle style)
    : style_(style), input_(STDIN_FILENO, [&loop](int descriptor) { return loop.waitForInput(descriptor); }) {
}

std::optional<std::string> TerminalDialog::askText(const std::string& prompt) {
    prompt_ = prompt;
    Output::text(prompt);
    Output::flush();
    auto line = input_.next();
    input_.setEdit({});
    typed_.reset();
    prompt_.clear();
    if (!line) {
        over_ = true;
        Output::line("");
    }
    return line;
}

void TerminalDialog::repeatPrompt() {
    if (!typed_ && Terminal::readsInput()) {
        typed_.emplace();
        input_.setEdit([this](std::string_view bytes) { return typed_->edit(bytes); });
    }
    Output::text(prompt_ + (typed_ ? printable(typed_->text()) : std::string()));
    Output::flush();
}

std::optional<std::string> TerminalDialog::ask(const std::string& prompt) {
    auto line = askText(prompt);
    return line ? std::optional(trimmed(*line)) : std::nullopt;
}

std::optional<std::string> TerminalDialog::askHidden(const std::string& prompt) {
    // Before the prompt is printed: what is typed at once must not be shown either.
    const Terminal::Hidden hidden;
    return ask(prompt);
}

void TerminalDialog::printError(const std::string& sentence) {
    Output::line(style_.red(sentence));
}

void TerminalDialog::printRefusal(const shell::InputResult& result) {
    if (!result)
        printError(refusalText(result));
}

void TerminalDialog::print(const std::string& text) {
    for (const auto& line : wrapped(text, Terminal::columns()))
        Output::line(line);
}

std::optional<std::size_t> wholeNumber(std::string_view word) {
    return numberIn<std::size_t>(word);
}

std::optional<double> decimalNumber(std::string_view word) {
    return numberIn<double>(word);
}

} // namespace wardlock::cli
