#pragma once

#include "platform/foundation/Export.h"

#include <functional>

namespace platform {

/// The time that animations and page transitions run on: real where a window shows them, stepped by hand in
/// tests and scripts. Main thread only.
class WARDLOCK_API AnimationClock {
public:
    virtual ~AnimationClock();

    /// Seconds since some start; never goes back.
    virtual double now() = 0;
    /// Runs `action` once `seconds` have passed; actions due at the same time run in the order in which they
    /// were asked for.
    virtual void after(double seconds, std::function<void()> action) = 0;

    /// The process's clock. While none is set, one that stands still at 0 and runs every action at once.
    static AnimationClock& current();
    /// Null takes it back. Not owned.
    static void setCurrent(AnimationClock* clock);
};

} // namespace platform
