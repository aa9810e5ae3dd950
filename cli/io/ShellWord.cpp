#include "cli/io/ShellWord.h"

#include "shell/screen/EscapedText.h"

namespace wardlock::cli {

namespace {

bool isPlain(char byte) {
    constexpr std::string_view marks = "%+,-./:=@_";
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') ||
           marks.find(byte) != marks.npos;
}

bool isPlain(std::string_view text) {
    for (const char byte : text)
        if (!isPlain(byte))
            return false;
    return !text.empty();
}

} // namespace

std::string shellWord(std::string_view text) {
    if (isPlain(text))
        return std::string(text);
    const bool hasControls = shell::escaped(text) != text;
    std::string quoted;
    for (const char byte : text)
        if (byte == '\'')
            quoted += hasControls ? "\\'" : "'\\''";
        else if (byte == '\\' && hasControls)
            quoted += "\\\\";
        else
            quoted += byte;
    return hasControls ? "$'" + shell::escaped(quoted) + '\'' : '\'' + quoted + '\'';
}

} // namespace wardlock::cli
