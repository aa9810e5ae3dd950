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
    /// else a text that is valid until the next call.
    std::optional<std::string_view> take(XmlCursor& cursor);
    /// Returns the text that take() returned last, valid as long as this object and the document.
    std::string_view kept(std::string_view text);

private:
    bool appendPiece(XmlCursor& cursor);

    std::string decoded_;
    std::forward_list<std::string> kept_;
};

} // namespace platform
