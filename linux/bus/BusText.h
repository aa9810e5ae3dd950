#pragma once

#include <string_view>

namespace platform::bus {

/// Whether a D-Bus string can carry the text: well-formed UTF-8 without a zero byte.
bool isBusText(std::string_view text);

} // namespace platform::bus
