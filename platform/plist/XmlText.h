#pragma once

#include "platform/plist/XmlCursor.h"

#include <forward_list>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Reads the characters inside an element: plain text, CDATA, the five named and all numeric character
/// references. Comments and processing instructions are left out, except that the comments of XmlCharacter.h
/// restore a character.
class XmlText {
public:
    /// Takes the characters up to the next tag. Returns a part of the document where it needs no decoding;
    /// else a text that this object keeps.
    std::optional<std::string_view> take(XmlCursor& cursor);

private:
    bool appendPiece(XmlCursor& cursor, std::string& text);

    std::forward_list<std::string> resolved_;
};

} // namespace platform
