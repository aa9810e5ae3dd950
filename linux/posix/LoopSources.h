#pragma once

#include "linux/posix/FileDescriptor.h"
#include "linux/posix/LoopSource.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

namespace platform::posix {

/// The sources of the main loop behind one pollable descriptor: an epoll set with a wake-up event, a timer
/// for the nearest deadline, and the descriptor of each source. Main thread only, wakeUp() aside. Where the
/// system gives no descriptors the set stays unreadable and nothing else fails.
class LoopSources {
public:
    static LoopSources& shared();

    /// The source must stay as long as the process, or be removed.
    void add(LoopSource& source);
    void remove(LoopSource& source);

    int descriptor() const { return epoll_.get(); }
    /// From any thread.
    void wakeUp();
    /// Takes a wake-up back; what woke us is looked at afterwards.
    void clearWakeUp();
    /// One turn: each source does what is due.
    void process();
    /// Looks at what each source now waits for. Cheap when nothing has changed: a source calls it after any
    /// work that it did outside process().
    void refresh();

private:
    struct Watch {
        LoopSource* source;
        int descriptor;
        short events;
    };

    LoopSources();

    void unwatch(Watch& watch);
    void watch(Watch& watch);
    void setTimer(std::optional<LoopSource::Clock::time_point> deadline);

    FileDescriptor epoll_;
    FileDescriptor wakeUp_;
    FileDescriptor timer_;
    std::vector<Watch> watches_;
    std::optional<LoopSource::Clock::time_point> timerDeadline_;
};

} // namespace platform::posix
