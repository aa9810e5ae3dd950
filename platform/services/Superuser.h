#pragma once

#include "platform/base/Export.h"

namespace platform {

/// Returns whether this process has the superuser's rights, with which some engines refuse to be sandboxed.
WARDLOCK_API bool isSuperuser();

} // namespace platform
