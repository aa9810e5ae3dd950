#include "platform/ui/AnimationClock.h"

namespace platform {

namespace {

class StandingClock : public AnimationClock {
    double now() override { return 0; }
    void after(double, std::function<void()> action) override { action(); }
};

AnimationClock* currentClock = nullptr;

} // namespace

AnimationClock::~AnimationClock() = default;

AnimationClock& AnimationClock::current() {
    static StandingClock standing;
    return currentClock ? *currentClock : standing;
}

void AnimationClock::setCurrent(AnimationClock* clock) {
    currentClock = clock;
}

} // namespace platform
