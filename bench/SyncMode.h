#pragma once

#include "platform/files/Sync.h"

#include <string_view>

namespace wardlock::bench {

/// "full", "fdatasync", and anything else for none.
platform::Sync syncOf(std::string_view mode);

} // namespace wardlock::bench
