#pragma once

/// Questions about the device and how it is held. Main thread only.

#include "platform/base/Export.h"
#include "platform/base/Geometry.h"

namespace wardlock {

WARDLOCK_API bool isIpad();
/// The main screen's size in points as seen in the current orientation: width and height swapped unless it is
/// portrait.
WARDLOCK_API platform::CGSize screenSize();
/// Neither portrait nor portrait upside down; an unknown orientation counts as landscape.
WARDLOCK_API bool isLandscape();

} // namespace wardlock
