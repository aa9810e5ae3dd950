#pragma once

#include "platform/plist/XmlCursor.h"

#include <forward_list>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Reads the characters inside an element: plain text, CDATA, the five named and all numeric character
/// references, with comments and processing instructions left out. Comments of XmlCharacter.h stand for what
/// they name.
class XmlText {
public:
    /// Takes the characters up to the next tag. A part of the document where it says what it means; else kept
    /// here.
    std::optional<std::string_view> take(XmlCursor& cursor);

private:
    bool appendPiece(XmlCursor& cursor, std::string& text);

    std::forward_list<std::string> resolved_;
};

} // namespace platform
