#pragma once

#include "platform/base/Export.h"

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// The bytes of a base64 text. Characters outside its alphabet are skipped, the padding may be missing; none
/// where the digits or the padding do not add up.
std::optional<std::string> bytesFromBase64(std::string_view text);

/// Appends the padded base64 of the bytes.
WARDLOCK_API void appendBase64(std::string& text, std::string_view bytes);

} // namespace platform
