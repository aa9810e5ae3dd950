#pragma once

/// How a terminal shows a UTF-8 text, without the process's locale: how many columns it takes, and what of it
/// would be obeyed instead of shown.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::cli {

/// 0 for what stands on the character before it, 2 for wide ones, 1 for all others.
std::size_t columnsOf(char32_t character);
std::size_t columnsOf(std::string_view text);

/// The text as one line that a terminal only shows: line ends and tabs become blanks, all other control
/// characters what shell::escaped makes of them.
std::string printable(std::string_view text);

/// At most `columns` wide; one that was cut ends in an ellipsis. Precondition: printable.
std::string truncated(std::string_view text, std::size_t columns);
/// With blanks up to `columns`.
std::string padded(std::string text, std::size_t columns);

/// Lines of at most `columns`, broken at blanks where there are some; line feeds break as well.
std::vector<std::string> wrapped(std::string_view text, std::size_t columns);

} // namespace wardlock::cli
