#pragma once

#include "platform/base/Export.h"

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Decodes base64 text. Characters outside the alphabet are skipped and the padding may be missing. Returns
/// nothing where the digits or the padding do not add up.
std::optional<std::string> bytesFromBase64(std::string_view text);

/// Appends the padded base64 form of `bytes`.
WARDLOCK_API void appendBase64(std::string& text, std::string_view bytes);

} // namespace platform
