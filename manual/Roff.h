#pragma once

#include <string>
#include <string_view>

/// Text in the form of manual pages (man(7)).
namespace wardlock::manual {

/// Running text: what stands in `backticks` and what looks like an option or a variable is bold.
std::string roffText(std::string_view text);
/// Text as it is, for names and examples: every hyphen is a minus, which can be copied into a shell.
std::string roffVerbatim(std::string_view text);
/// Paragraphs and, where lines are indented by two blanks, examples, which keep their lines.
std::string roffParagraphs(std::string_view description);
/// A synopsis: words in capitals are what the reader puts in.
std::string roffSynopsis(std::string_view synopsis);

} // namespace wardlock::manual
