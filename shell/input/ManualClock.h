#pragma once

#include "platform/ui/AnimationClock.h"
#include "shell/input/TimedActions.h"

namespace wardlock::shell {

/// Time that stands still until it is stepped: for scripts and tests.
class ManualClock : public platform::AnimationClock {
public:
    Time now() override { return now_; }
    void after(Time delay, std::function<void()> action) override;

    /// Lets `seconds` pass; fractions of a nanosecond count in the steps that follow. Each action runs at its
    /// own time, those that it asks for in turn included, as far as they fall into the step.
    void step(double seconds);

private:
    Time stepLength(double seconds);

    Time now_{};
    /// What the steps until now were longer than the time that has passed, in nanoseconds.
    double remainder_ = 0;
    TimedActions actions_;
};

} // namespace wardlock::shell
