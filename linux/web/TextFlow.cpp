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
    blockEnds_ = true;
    lineEnds_ = std::max(lineEnds_, lineEnds);
}

void TextFlow::beginLink(std::size_t number) {
    link_ = number;
    linkText_.clear();
}

std::string TextFlow::endLink() {
    if (linkText_.empty()) {
        writeSpace();
        run(link_);
    }
    link_ = 0;
    return std::move(linkText_);
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
    const bool parts = space_ || lineEnds_ > 0;
    writeSpace();
    appendUtf8(character, run(link_).text);
    if (link_ == 0 || (character == U' ' && linkText_.empty()))
        return;
    if (parts && !linkText_.empty())
        linkText_.push_back(' ');
    appendUtf8(character, linkText_);
}

void TextFlow::writeSpace() {
    if (blockEnds_) {
        beginBlock();
    } else if (lineEnds_ > 0) {
        run(link_).text.append(std::min<std::size_t>(lineEnds_, 2), '\n');
    } else if (space_) {
        // Between two links it belongs to neither.
        const std::size_t before = blocks_.back().runs.back().link;
        run(before == link_ ? link_ : 0).text.push_back(' ');
    }
    blockEnds_ = false;
    lineEnds_ = 0;
    space_ = false;
}

void TextFlow::beginBlock() {
    WebBlock block;
    block.apart = lineEnds_ > 1 && !blocks_.empty();
    block.lists = lists_;
    if (!headings_.empty()) {
        block.kind = WebBlock::Kind::Heading;
        block.rank = headings_.back();
    } else if (preformatted_ > 0) {
        block.kind = WebBlock::Kind::Preformatted;
    } else if (atItem_) {
        block.kind = WebBlock::Kind::ListItem;
    }
    atItem_ = false;
    blocks_.push_back(std::move(block));
}

WebRun& TextFlow::run(std::size_t link) {
    std::vector<WebRun>& runs = blocks_.back().runs;
    if (runs.empty() || runs.back().link != link)
        runs.push_back({{}, link});
    return runs.back();
}

} // namespace platform::web
