#pragma once

#include "platform/files/Sync.h"

#include <string_view>

namespace wardlock::bench {

/// Converts "full" and "fdatasync"; anything else is none.
platform::Sync syncOf(std::string_view mode);

} // namespace wardlock::bench
