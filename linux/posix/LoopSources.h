#pragma once

#include "linux/posix/FileDescriptor.h"
#include "linux/posix/LoopSource.h"
#include "platform/base/Subscription.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <vector>

namespace platform::posix {

/// The sources of the main loop behind one pollable descriptor: an epoll set with a wake-up event, a timer
/// for the nearest deadline, and the descriptor of each source. Main thread only, except wakeUp(). Where the
/// system provides no descriptors, the set stays unreadable and nothing else fails.
class LoopSources {
public:
    static LoopSources& shared();

    /// Watches the source until the subscription ends, which the source outlives.
    Subscription add(LoopSource& source);

    int descriptor() const { return epoll_.get(); }
    /// Makes the set readable. Any thread.
    void wakeUp();
    /// Clears the wake-up; the sources that caused it are processed afterwards.
    void clearWakeUp();
    /// One turn: each source processes what is due.
    void process();
    /// Reads again what each source waits for. Cheap when nothing has changed: a source calls it after any
    /// work outside process().
    void refresh();

private:
    struct Watch {
        LoopSource* source;
        int descriptor;
        short events;
    };

    LoopSources();

    void remove(const LoopSource& source);
    bool isWatched(const LoopSource& source) const;
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
