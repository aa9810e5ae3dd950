#pragma once

#include <string>
#include <string_view>

namespace wardlock::cli {

/// Returns the text with "docs/" replaced by the folder in which the reader finds the documentation. An empty
/// folder leaves the text unchanged.
std::string withPagesIn(std::string_view folder, std::string_view text);

} // namespace wardlock::cli
