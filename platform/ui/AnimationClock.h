#pragma once

#include "platform/base/Export.h"

#include <chrono>
#include <functional>

namespace platform {

/// The time that animations and page transitions run on: real where a window shows them, stepped by hand in
/// tests and scripts. Times are whole nanoseconds, so that times that follow each other add up exactly. Main
/// thread only.
class WARDLOCK_API AnimationClock {
public:
    using Time = std::chrono::nanoseconds;

    virtual ~AnimationClock();

    /// The time since some start; never goes back.
    virtual Time now() = 0;
    /// Runs `action` once `delay` has passed; actions due at the same time run in the order in which they
    /// were asked for.
    virtual void after(Time delay, std::function<void()> action) = 0;

    /// Seconds as the nearest time. What is no number is none at all, and what is too long for a time is the
    /// longest.
    static Time time(double seconds);

    /// The process's clock. While none is set, one that stands still at 0 and runs every action at once.
    static AnimationClock& current();
    /// Null takes it back. Not owned.
    static void setCurrent(AnimationClock* clock);
};

} // namespace platform
