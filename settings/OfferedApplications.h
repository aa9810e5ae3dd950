#pragma once

/// Which applications a parent can restrict, and in which order they are listed.

#include "platform/base/Export.h"
#include "platform/values/Value.h"

namespace wardlock {

/// Returns the applications that are never offered: services of the system that a user does not open.
/// Creates the array at each call.
WARDLOCK_API platform::Array hiddenDisplayIdentifiers();

/// Returns the identifiers to list: the restricted ones, then the others that are offered, each by name.
/// `names` maps the identifiers of the installed applications to their display names. A restricted identifier
/// is listed even if it is hidden or not installed, and as often as it is stored.
WARDLOCK_API platform::MutableArray offeredApplications(const platform::Dictionary& names,
                                                        const platform::Array& restricted);

} // namespace wardlock
