#pragma once

#include "../platform/base/Export.h"
#include "../platform/values/NSException.h"

namespace wardlock {

/// An uncaught-exception handler: writes a full report of the exception into the log. It neither stops nor
/// recovers; the process ends after it. The report is queued, so it reaches the file only where the queue
/// still runs.
WARDLOCK_API void TweakExceptionHandler(const platform::NSException& exception);

} // namespace wardlock
