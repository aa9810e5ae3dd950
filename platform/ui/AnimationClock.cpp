#include "platform/ui/AnimationClock.h"

#include "platform/base/CurrentService.h"

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

class StandingClock : public AnimationClock {
    Time now() override { return Time::zero(); }
    void after(Time, std::function<void()> action) override { action(); }
};

/// A century: the sum of two such times does not overflow.
constexpr std::chrono::hours longest{24 * 36'525};

AnimationClock& standingClock() {
    static StandingClock standing;
    return standing;
}

constinit CurrentService<AnimationClock> currentClock(standingClock);

} // namespace

AnimationClock::~AnimationClock() = default;

AnimationClock::Time AnimationClock::time(double seconds) {
    using Seconds = std::chrono::duration<double>;
    const double most = Seconds(longest).count();
    return std::isnan(seconds) ? Time::zero()
                               : std::chrono::round<Time>(Seconds(std::clamp(seconds, -most, most)));
}

AnimationClock& AnimationClock::current() {
    return currentClock.get();
}

void AnimationClock::setCurrent(AnimationClock* clock) {
    currentClock.set(clock);
}

} // namespace platform
