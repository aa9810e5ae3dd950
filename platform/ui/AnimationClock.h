#pragma once

#include "platform/base/Export.h"

#include <chrono>
#include <functional>

namespace platform {

/// The clock of animations and page transitions: real time where a window shows them, stepped by hand in
/// tests and scripts. Times are whole nanoseconds, so that consecutive times add up exactly. Main thread
/// only.
class WARDLOCK_API AnimationClock {
public:
    using Time = std::chrono::nanoseconds;

    virtual ~AnimationClock();

    /// Returns the time since some start; never goes back.
    virtual Time now() = 0;
    /// Runs `action` once `delay` has passed. Actions due at the same time run in the order of the calls.
    virtual void after(Time delay, std::function<void()> action) = 0;

    /// Converts seconds to the nearest time. Not-a-number becomes zero, and what is too long for a time
    /// becomes the longest time.
    static Time time(double seconds);

    /// Returns the process's clock. While none is set, its time is always 0 and every action runs at once.
    static AnimationClock& current();
    /// Sets the process's clock; null removes it. The caller keeps ownership.
    static void setCurrent(AnimationClock* clock);
};

} // namespace platform
