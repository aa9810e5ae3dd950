#pragma once

/// How a terminal shows a UTF-8 text, independent of the locale: how many columns it takes, and which
/// characters the terminal would execute.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::cli {

/// Returns 0 for combining and invisible characters, 2 for wide ones, 1 for all others.
std::size_t columnsOf(char32_t character);
std::size_t columnsOf(std::string_view text);

/// Returns the text as one line without control characters: line ends and tabs become blanks, all others are
/// escaped by shell::escaped.
std::string printable(std::string_view text);

/// Returns at most `columns` of the text; an ellipsis replaces the rest. Precondition: printable.
std::string truncated(std::string_view text, std::size_t columns);
/// Returns the text with blanks up to `columns`.
std::string padded(std::string text, std::size_t columns);

/// Returns lines of at most `columns`, broken at line feeds and, where possible, at blanks.
std::vector<std::string> wrapped(std::string_view text, std::size_t columns);

} // namespace wardlock::cli
