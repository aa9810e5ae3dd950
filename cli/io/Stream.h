#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace wardlock::cli {

/// Returns the open descriptor from which the path reads: standard input for "-", and the one that
/// "/dev/stdin" or "/dev/fd/3" names. None for the path of a file.
std::optional<int> streamToRead(std::string_view path);

/// Returns the open descriptor to which the path writes; "-" is standard output.
std::optional<int> streamToWrite(std::string_view path);

/// Reads to the end. std::errc::file_too_large beyond `largest` bytes.
std::error_code readToEnd(int descriptor, std::size_t largest, std::string& bytes);

/// Writes all bytes. Another process that shares the pipe or terminal may have made it non-blocking: then
/// this waits until it can be written, as readToEnd() does until it can be read.
std::error_code writeAll(int descriptor, std::string_view bytes);

} // namespace wardlock::cli
