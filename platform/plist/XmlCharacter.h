#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Characters that an XML document may not contain, not even as a reference: most control characters, U+FFFE
/// and U+FFFF. One of them would make the document unreadable to other readers.
///
/// In a text such a character is written as U+FFFD, which other readers see, and a comment with its code, as
/// in "<!--U+0007-->". Other readers skip the comment; ours restores the character from it.

/// Returns whether an XML document may contain the character.
bool isXmlCharacter(char32_t character);

/// Appends the replacement for a character that XML does not allow.
void appendReplacement(std::string& text, char32_t character);

/// Restores the character that the comment names, where the text before it ends with U+FFFD. Any other
/// comment has no effect.
void restoreReplaced(std::string& text, std::string_view comment);

} // namespace platform
