#pragma once

#include "cli/io/LineReader.h"
#include "cli/io/Terminal.h"

#include <string>
#include <string_view>

namespace wardlock::cli {

/// The line that is being typed, where it had to be shown again below other output. The terminal can no
/// longer show or edit that part of it. From here on this class edits it: Backspace, Ctrl+U, Ctrl+W, Ctrl+D
/// and Enter.
class TypedLine {
public:
    const std::string& text() const { return text_; }
    /// Takes bytes that were typed, and shows them. Returns the line once it has ended, with all that
    /// follows.
    LineReader::Edited edit(std::string_view bytes);

private:
    void add(char byte);
    void eraseCharacter();
    void eraseWord();

    const Terminal::Unbuffered terminal_;
    std::string text_;
};

} // namespace wardlock::cli
