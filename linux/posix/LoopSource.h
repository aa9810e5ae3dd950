#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace platform::posix {

/// Something that wants the main thread when a descriptor is ready or a time has come. Main thread only. What
/// it wants is asked for anew before each wait, because it changes with what the source last did.
class LoopSource {
public:
    using Clock = std::chrono::steady_clock;

    virtual ~LoopSource() = default;

    /// -1: none to watch.
    virtual int descriptor() const = 0;
    /// POLLIN, POLLOUT or both.
    virtual short events() const = 0;
    /// None: no time to wait for; one that has passed: at once.
    virtual std::optional<Clock::time_point> deadline() const = 0;
    /// Does what is due; never waits. Called at every turn of the loop, due or not.
    virtual void process() = 0;
};

} // namespace platform::posix
