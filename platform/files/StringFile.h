#pragma once

#include "platform/base/Export.h"

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Reads the text of a whole file, a path of this machine, without a byte-order mark. Returns nothing when
/// the file cannot be read, is not UTF-8, or is larger than any text a page shows (16 MiB).
WARDLOCK_API std::optional<std::string> stringWithContentsOfFile(std::string_view path);

} // namespace platform
