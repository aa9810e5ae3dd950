#pragma once

#include "platform/base/Export.h"

#include <chrono>
#include <functional>

namespace platform {

/// What a host's loop watches on the platform's behalf: the main queue and the distributed notification
/// centre behind one descriptor. Main thread only.
class WARDLOCK_API MainLoop {
public:
    static MainLoop& shared();

    /// Readable when process() has something to do; timeouts included. Owned by the loop, valid for the
    /// process's life.
    int descriptor() const;
    /// Does what is due now and returns; never waits.
    void process();
    /// A loop for hosts that have none: processes until `done` answers true or the deadline passes; returns
    /// what `done` answered last.
    bool runUntil(const std::function<bool()>& done, std::chrono::milliseconds timeout);
    /// From any thread: makes the descriptor readable, so that the host calls process().
    void wakeUp();

private:
    MainLoop();
};

} // namespace platform
