#pragma once

#include <string>

namespace platform::notifications {

/// Returns the same text in every process that uses the same folder as device root, by whatever path:
/// "DEVICE:INODE" in decimal. For a root that does not exist yet it returns "path:" and its path. Main thread
/// only.
std::string deviceRootIdentity();

} // namespace platform::notifications
