#pragma once

#include "../base/Export.h"

#include <chrono>
#include <functional>

namespace platform {

/// What a host's loop watches for the platform: the main queue and the distributed notification centre behind
/// one descriptor. Main thread only.
class WARDLOCK_API MainLoop {
public:
    static MainLoop& shared();

    /// Returns the descriptor that is readable when process() has work, timeouts included. The loop owns it;
    /// it is valid until the process ends.
    int descriptor() const;
    /// Processes what is due now and returns; never waits.
    void process();
    /// A loop for hosts that have none: processes until `done` returns true or `timeout` has passed. Returns
    /// the last result of `done`.
    bool runUntil(const std::function<bool()>& done, std::chrono::milliseconds timeout);
    /// Makes the descriptor readable, so that the host calls process(). Any thread.
    void wakeUp();

private:
    MainLoop();
};

} // namespace platform
