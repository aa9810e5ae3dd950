#include "shell/screen/OneLine.h"

#include <algorithm>

namespace wardlock::shell {

namespace {

bool isControlCharacter(char byte) {
    return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F;
}

} // namespace

std::string oneLine(std::string text) {
    while (!text.empty() && isControlCharacter(text.back()))
        text.pop_back();
    std::ranges::replace_if(text, isControlCharacter, ' ');
    return text;
}

} // namespace wardlock::shell
