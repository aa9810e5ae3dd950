#pragma once

#include "../base/Export.h"
#include "../base/Geometry.h"

/// What a host decides about the device. Main thread only.

namespace platform {

inline constexpr long UIUserInterfaceIdiomPhone = 0;
inline constexpr long UIUserInterfaceIdiomPad = 1;

/// Sets the size that the host gives the screen, in points, as it is held: portrait unless it is wider than
/// high. 390 x 844 until then.
WARDLOCK_API void setScreenSize(CGSize size);
/// Sets the screen's pixels per point; 2 until then.
WARDLOCK_API void setScreenScale(double pixelsPerPoint);
/// Sets the idiom that the host shows; a phone's until then.
WARDLOCK_API void setUserInterfaceIdiom(long idiom);

} // namespace platform
