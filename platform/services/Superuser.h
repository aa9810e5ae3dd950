#pragma once

#include "platform/base/Export.h"

namespace platform {

/// Whether this process acts with the superuser's rights, which some engines refuse to be sandboxed with.
WARDLOCK_API bool isSuperuser();

} // namespace platform
