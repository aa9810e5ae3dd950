#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Characters that no XML document may hold, not even as a reference: most control characters, U+FFFE and
/// U+FFFF. One of them would make the document unreadable to other readers.
///
/// In a text such a character is written as U+FFFD, which other readers see, and a comment of its code, as in
/// "<!--U+0007-->", which they pass over and ours takes the character back from.

/// Whether an XML document may hold the character.
bool isXmlCharacter(char32_t character);

/// Appends what stands for a character that is none of XML.
void appendReplacement(std::string& text, char32_t character);

/// Puts the character back that the comment's content names, where the text before it ends with U+FFFD. Any
/// other comment is without effect.
void restoreReplaced(std::string& text, std::string_view comment);

} // namespace platform
