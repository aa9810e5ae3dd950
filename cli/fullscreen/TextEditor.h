#pragma once

#include "cli/fullscreen/Key.h"

#include <cstddef>
#include <string>

namespace wardlock::cli {

/// A text that is being typed, and where the next character goes. A combining mark belongs to the character
/// before it. The text is valid UTF-8.
class TextEditor {
public:
    enum class Lines { One, Many };
    enum class Outcome {
        /// The key means nothing here.
        Ignored,
        Moved,
        Changed
    };

    explicit TextEditor(std::string text = {}, Lines lines = Lines::One);

    /// Carries out a key. In one line, line ends of a pasted text become blanks.
    Outcome handle(const Key& key);

    const std::string& text() const { return text_; }
    /// Bytes before the caret.
    std::size_t caret() const { return caret_; }
    void moveTo(std::size_t caret);

private:
    Outcome move(std::size_t caret);
    Outcome erase(std::size_t begin, std::size_t end);
    Outcome insert(std::string_view text);
    Outcome handleControl(char32_t letter);
    std::size_t before(std::size_t position) const;
    std::size_t after(std::size_t position) const;
    std::size_t wordBefore() const;
    std::size_t wordAfter() const;
    std::size_t lineStart() const;
    std::size_t lineEnd() const;

    std::string text_;
    std::size_t caret_;
    Lines lines_;
};

} // namespace wardlock::cli
