#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Returns whether XML writes the text as it is. May return false for a text that needs no escape.
bool needsNoEscape(std::string_view text);

/// Returns `text` as XML characters that read back to it:
/// - Carriage returns, which other readers turn into line feeds, become a reference.
/// - Characters that XML cannot express are written as XmlCharacter.h documents.
/// - Bytes that are not UTF-8 become U+FFFD each: one of them would make the whole document unreadable.
std::string escaped(std::string_view text);

} // namespace platform
