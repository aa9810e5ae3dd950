#pragma once

#include "platform/foundation/Export.h"

#include <string_view>

namespace platform {

/// Opens the URL with the program that this machine has registered for its scheme, and does not wait for that
/// program. Whether there was one that could be started; without a registered handler nothing happens.
WARDLOCK_API bool openURLOnSystem(std::string_view url);

} // namespace platform
