#pragma once

#include "../platform/base/Export.h"

#include <string>
#include <string_view>

namespace wardlock {

/// Returns the device path of the preferences document of a bundle identifier, formatted at each call.
WARDLOCK_API std::string documentPath(std::string_view identifier);

} // namespace wardlock
