#include "cli/fullscreen/TextEditor.h"

#include "cli/io/TextWidth.h"
#include "platform/base/Utf8.h"
#include "shell/screen/OneLine.h"

#include <algorithm>
#include <utility>

namespace wardlock::cli {

namespace {

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

} // namespace

TextEditor::TextEditor(std::string text, Lines lines)
    : text_(std::move(text)), caret_(text_.size()), lines_(lines) {}

TextEditor::Outcome TextEditor::handle(const Key& key) {
    switch (key.kind) {
    case KeyKind::Character:
        return insert(key.text);
    case KeyKind::Paste:
        return insert(lines_ == Lines::One ? shell::oneLine(key.text) : key.text);
    case KeyKind::Enter:
        return lines_ == Lines::Many ? insert("\n") : Outcome::Ignored;
    case KeyKind::Backspace:
        return erase(before(caret_), caret_);
    case KeyKind::Delete:
        return erase(caret_, after(caret_));
    case KeyKind::Left:
        return move(before(caret_));
    case KeyKind::Right:
        return move(after(caret_));
    case KeyKind::WordLeft:
        return move(wordBefore());
    case KeyKind::WordRight:
        return move(wordAfter());
    case KeyKind::Home:
        return move(lineStart());
    case KeyKind::End:
        return move(lineEnd());
    case KeyKind::Control:
        return handleControl(key.character);
    default:
        return Outcome::Ignored;
    }
}

/// The keys of the shells.
TextEditor::Outcome TextEditor::handleControl(char32_t letter) {
    switch (letter) {
    case 'a':
        return move(lineStart());
    case 'e':
        return move(lineEnd());
    case 'b':
        return move(before(caret_));
    case 'f':
        return move(after(caret_));
    case 'd':
        return erase(caret_, after(caret_));
    case 'u':
        return erase(lineStart(), caret_);
    case 'k':
        return erase(caret_, lineEnd());
    case 'w':
        return erase(wordBefore(), caret_);
    default:
        return Outcome::Ignored;
    }
}

void TextEditor::moveTo(std::size_t caret) {
    caret_ = std::min(caret, text_.size());
    while (caret_ > 0 && caret_ < text_.size() && isContinuation(text_[caret_]))
        --caret_;
}

TextEditor::Outcome TextEditor::move(std::size_t caret) {
    caret_ = caret;
    return Outcome::Moved;
}

TextEditor::Outcome TextEditor::erase(std::size_t begin, std::size_t end) {
    caret_ = begin;
    if (begin == end)
        return Outcome::Moved;
    text_.erase(begin, end - begin);
    return Outcome::Changed;
}

TextEditor::Outcome TextEditor::insert(std::string_view text) {
    text_.insert(caret_, text);
    caret_ += text.size();
    return text.empty() ? Outcome::Moved : Outcome::Changed;
}

std::size_t TextEditor::before(std::size_t position) const {
    while (position > 0) {
        do
            --position;
        while (position > 0 && isContinuation(text_[position]));
        if (columnsOf(platform::decodeUtf8(text_, position).character) > 0)
            break;
    }
    return position;
}

std::size_t TextEditor::after(std::size_t position) const {
    while (position < text_.size()) {
        position += std::max<std::size_t>(platform::decodeUtf8(text_, position).length, 1);
        if (position == text_.size() || columnsOf(platform::decodeUtf8(text_, position).character) > 0)
            break;
    }
    return position;
}

std::size_t TextEditor::wordBefore() const {
    std::size_t position = caret_;
    while (position > 0 && text_[before(position)] == ' ')
        position = before(position);
    while (position > 0 && text_[before(position)] != ' ')
        position = before(position);
    return position;
}

std::size_t TextEditor::wordAfter() const {
    std::size_t position = caret_;
    while (position < text_.size() && text_[position] == ' ')
        position = after(position);
    while (position < text_.size() && text_[position] != ' ')
        position = after(position);
    return position;
}

std::size_t TextEditor::lineStart() const {
    const std::size_t end = caret_ == 0 ? std::string::npos : text_.rfind('\n', caret_ - 1);
    return end == std::string::npos ? 0 : end + 1;
}

std::size_t TextEditor::lineEnd() const {
    return std::min(text_.find('\n', caret_), text_.size());
}

} // namespace wardlock::cli
