#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Whether the text stands for itself in XML. May answer false for one that does.
bool needsNoEscape(std::string_view text);

/// The text as XML characters that read back to it. Carriage returns, which other readers turn into line
/// feeds, become a reference, and what XML has no way to hold is written as XmlCharacter.h says. Bytes that
/// are no UTF-8 become U+FFFD each, since one of them would make the whole document unreadable.
std::string escaped(std::string_view text);

} // namespace platform
