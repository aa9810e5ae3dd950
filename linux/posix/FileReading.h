#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>

namespace platform::posix {

/// Reads the descriptor `file` to its end; std::errc::file_too_large beyond `maximum` bytes. `expected` is
/// the reported size.
std::error_code readToEnd(int file, std::size_t expected, std::size_t maximum, std::string& bytes);

/// Finds whether `bytes` are all that the descriptor `file` contains. Reads no further than the first
/// difference.
std::error_code compareToEnd(int file, std::string_view bytes, bool& same);

} // namespace platform::posix
