#pragma once

namespace wardlock::shell {

/// Installs what an uncaught exception runs before the process ends. The queued log entries are written when
/// it was thrown on the main thread. Before that `restore` runs, with which a front end restores the terminal
/// or flushes its output; null for none.
void installTerminationHook(void (*restore)());

} // namespace wardlock::shell
