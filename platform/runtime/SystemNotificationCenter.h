#pragma once

namespace platform {

class CFNotificationCenter;

/// Returns the operating system's own distributed centre, created on first use and kept until the process
/// ends.
CFNotificationCenter& systemNotificationCenter();

} // namespace platform
