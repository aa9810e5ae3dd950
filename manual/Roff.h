#pragma once

#include <string>
#include <string_view>

/// Converts text to the form of manual pages (man(7)).
namespace wardlock::manual {

/// Converts running text: what is in `backticks` and what looks like an option or a variable becomes bold.
std::string roffText(std::string_view text);
/// Converts names and examples verbatim: every hyphen becomes a minus, which can be copied into a shell.
std::string roffVerbatim(std::string_view text);
/// Converts paragraphs, and lines indented by two blanks as examples, which keep their line breaks.
std::string roffParagraphs(std::string_view description);
/// Converts a synopsis: words in capitals are placeholders.
std::string roffSynopsis(std::string_view synopsis);

} // namespace wardlock::manual
