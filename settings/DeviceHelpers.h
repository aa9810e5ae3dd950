#pragma once

/// Questions about the device and how it is held. Main thread only.

#include "../platform/base/Export.h"
#include "../platform/base/Geometry.h"

namespace wardlock {

WARDLOCK_API bool isIpad();
/// Returns the main screen's size in points in the current orientation: width and height are swapped unless
/// it is portrait.
WARDLOCK_API platform::CGSize screenSize();
/// Returns true unless portrait or portrait upside down; an unknown orientation counts as landscape.
WARDLOCK_API bool isLandscape();

} // namespace wardlock
