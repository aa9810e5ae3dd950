#pragma once

namespace wardlock::shell {

/// From now on, an exception that nobody catches ends the process only after the queued log entries are
/// written (when it was thrown on the main thread) and `face`, which may be null, has run: a terminal is
/// given back there.
void installTerminationHook(void (*face)());

} // namespace wardlock::shell
