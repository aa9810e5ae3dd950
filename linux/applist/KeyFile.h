#pragma once

#include "linux/applist/GlibPointer.h"

#include <string>

namespace platform::applist {

/// Reads the settings file of a desktop, theme or entry: a regular file within bounds; null for all others.
KeyFilePointer readKeyFile(const std::string& path);

} // namespace platform::applist
