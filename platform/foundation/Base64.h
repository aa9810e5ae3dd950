#pragma once

#include "platform/foundation/Export.h"

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// The bytes of a base64 text. White space may stand anywhere, the padding may be missing; none for anything
/// else.
std::optional<std::string> bytesFromBase64(std::string_view text);

/// Appends the padded base64 of the bytes.
WARDLOCK_API void appendBase64(std::string& text, std::string_view bytes);

} // namespace platform
