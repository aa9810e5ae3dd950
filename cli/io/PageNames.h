#pragma once

#include <string>
#include <string_view>

namespace wardlock::cli {

/// A text of the command that names pages of the documentation as the source does, "docs/automation.md": with
/// the folder in which its reader finds them instead. An empty folder leaves the text as it is.
std::string withPagesIn(std::string_view folder, std::string_view text);

} // namespace wardlock::cli
