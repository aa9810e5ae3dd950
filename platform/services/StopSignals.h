#pragma once

#include "platform/base/Export.h"

namespace platform {

/// Catches SIGINT, SIGTERM and SIGHUP from now on, so that a program can store what is being typed before it
/// ends. Returns a descriptor that becomes readable with the first of them, and is valid until the process
/// ends; -1 where the system provides none, and nothing is caught.
///
/// A signal that was ignored stays ignored, as for a program that is to outlive its terminal. Another signal
/// ends the process at once: the program may hang. Programs that this one starts are not concerned. Main
/// thread only.
WARDLOCK_API int catchStopSignals();

} // namespace platform
