#pragma once

#include "platform/ui/AnimationClock.h"
#include "shell/input/TimedActions.h"

namespace wardlock::shell {

/// Time that advances only by step(): for scripts and tests.
class ManualClock : public platform::AnimationClock {
public:
    Time now() override { return now_; }
    void after(Time delay, std::function<void()> action) override;

    /// Lets `seconds` pass; fractions of a nanosecond count in the steps that follow. Each action runs at its
    /// own time. Actions that it adds run too, when their time is within the step.
    void step(double seconds);

private:
    Time stepLength(double seconds);

    Time now_{};
    /// The nanoseconds by which the steps until now were longer than the time that has passed.
    double remainder_ = 0;
    TimedActions actions_;
};

} // namespace wardlock::shell
