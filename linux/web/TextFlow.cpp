#include "linux/web/TextFlow.h"

#include "platform/base/Utf8.h"

#include <algorithm>

namespace platform::web {
namespace {

bool isControl(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0);
}

} // namespace

void TextFlow::write(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        const DecodedCharacter decoded = decodeUtf8(text, i);
        i += std::max<std::size_t>(decoded.length, 1);
        if (decoded.length != 0)
            put(decoded.character);
    }
}

void TextFlow::endLine(std::size_t lineEnds) {
    space_ = false;
    lineEnds_ = std::max(lineEnds_, lineEnds);
}

void TextFlow::breakLine() {
    space_ = false;
    ++lineEnds_;
}

std::string_view TextFlow::since(std::size_t size) const {
    const std::string_view text = std::string_view(text_).substr(std::min(size, text_.size()));
    return text.substr(std::min(text.find_first_not_of(" \n"), text.size()));
}

std::string TextFlow::take() {
    if (!text_.empty())
        text_.push_back('\n');
    return std::move(text_);
}

void TextFlow::put(char32_t character) {
    const bool keepsSpace = preformatted_ > 0;
    const bool isSpace = character == ' ' || character == '\t' || character == '\r' || character == '\f';
    if (character == '\n' && keepsSpace)
        breakLine();
    else if (character == '\n' || (isSpace && !keepsSpace))
        space_ = true;
    else if (isSpace && character != '\r')
        append(U' ');
    else if (!isControl(character))
        append(character);
}

void TextFlow::append(char32_t character) {
    if (!text_.empty())
        text_.append(std::min<std::size_t>(lineEnds_, 2), '\n');
    if (space_ && lineEnds_ == 0 && !text_.empty())
        text_.push_back(' ');
    lineEnds_ = 0;
    space_ = false;
    appendUtf8(character, text_);
}

} // namespace platform::web
