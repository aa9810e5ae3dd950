#pragma once

#include "platform/base/Export.h"

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// The text of a whole file, a path of this machine, without a byte-order mark; none when it cannot be read,
/// is no UTF-8, or is larger than any text a page shows (16 MiB).
WARDLOCK_API std::optional<std::string> stringWithContentsOfFile(std::string_view path);

} // namespace platform
