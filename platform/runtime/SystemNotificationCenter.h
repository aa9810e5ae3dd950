#pragma once

namespace platform {

class CFNotificationCenter;

/// The operating system's own distributed centre, made at first use and kept until the process ends.
CFNotificationCenter& systemNotificationCenter();

} // namespace platform
