#pragma once

#include "platform/base/Export.h"
#include "platform/versions/VersionFolder.h"

#include <string>

namespace wardlock {

/// Returns why no versions are read from the folder, as the end of a sentence; empty where they are.
WARDLOCK_API std::string reasonAgainst(const platform::VersionFolder& folder);

} // namespace wardlock
