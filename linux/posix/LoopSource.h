#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace platform::posix {

/// A source of events for the main loop: a descriptor, a deadline or both. Main thread only. The loop queries
/// it again before each wait, because both change with the source's state.
class LoopSource {
public:
    using Clock = std::chrono::steady_clock;

    virtual ~LoopSource() = default;

    /// -1: no descriptor to watch.
    virtual int descriptor() const = 0;
    /// POLLIN, POLLOUT or both.
    virtual short events() const = 0;
    /// Empty: no deadline; a time that has passed: at once.
    virtual std::optional<Clock::time_point> deadline() const = 0;
    /// Processes what is due; never waits. Called at every turn of the loop, due or not.
    virtual void process() = 0;
};

} // namespace platform::posix
