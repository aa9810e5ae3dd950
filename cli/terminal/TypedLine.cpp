#include "cli/terminal/TypedLine.h"

#include "cli/io/Output.h"
#include "cli/io/TextWidth.h"

#include <utility>

namespace wardlock::cli {

namespace {

constexpr char endOfInput = 'D' - '@';
constexpr char clearLine = 'U' - '@';
constexpr char clearWord = 'W' - '@';
constexpr char backspace = '\b';
constexpr char deleteKey = 127;

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

} // namespace

LineReader::Edited TypedLine::edit(std::string_view bytes) {
    for (std::size_t position = 0; position < bytes.size(); ++position) {
        const char byte = bytes[position];
        if (byte == '\n' || byte == '\r') {
            Output::line("");
            Output::flush();
            return {std::exchange(text_, {}) + '\n' + std::string(bytes.substr(position + 1)), false};
        }
        if (byte == endOfInput && text_.empty())
            return {{}, true};
        add(byte);
    }
    Output::flush();
    return {};
}

void TypedLine::add(char byte) {
    if (byte == backspace || byte == deleteKey) {
        eraseCharacter();
    } else if (byte == clearLine) {
        while (!text_.empty())
            eraseCharacter();
    } else if (byte == clearWord) {
        eraseWord();
    } else if (static_cast<unsigned char>(byte) >= ' ') {
        text_ += byte;
        Output::text({&byte, 1});
    }
}

void TypedLine::eraseCharacter() {
    if (text_.empty())
        return;
    std::size_t begin = text_.size() - 1;
    while (begin > 0 && isContinuation(text_[begin]))
        --begin;
    for (std::size_t column = 0; column < columnsOf(std::string_view(text_).substr(begin)); ++column)
        Output::text("\b \b");
    text_.erase(begin);
}

void TypedLine::eraseWord() {
    while (text_.ends_with(' '))
        eraseCharacter();
    while (!text_.empty() && !text_.ends_with(' '))
        eraseCharacter();
}

} // namespace wardlock::cli
