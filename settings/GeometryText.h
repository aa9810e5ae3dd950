#pragma once

/// Geometry as text for log lines, six digits after the decimal point.

#include "../platform/base/Export.h"
#include "../platform/base/Geometry.h"

#include <string>

namespace wardlock {

/// Returns "{x, y, width, height}".
WARDLOCK_API std::string frameToString(const platform::CGRect& frame);
/// Returns "{width, height}".
WARDLOCK_API std::string sizeToString(const platform::CGSize& size);
/// Returns "{x, y}".
WARDLOCK_API std::string pointToString(const platform::CGPoint& point);

} // namespace wardlock
