#pragma once

#include <string>

namespace platform::notifications {

/// The same text in every process that uses the same folder as device root, by whatever path: "DEVICE:INODE"
/// in decimal. A root that does not exist yet is named by its path, "path:" before it. Main thread only.
std::string deviceRootIdentity();

} // namespace platform::notifications
