#pragma once

#include "platform/ui/AnimationClock.h"
#include "shell/TimedActions.h"

namespace wardlock::shell {

/// Time that stands still until it is stepped: for scripts and tests.
class ManualClock : public platform::AnimationClock {
public:
    double now() override { return now_; }
    void after(double seconds, std::function<void()> action) override;

    /// Lets `seconds` pass. Each action runs at its own time, those that it asks for in turn included, as far
    /// as they fall into the step.
    void step(double seconds);

private:
    double now_ = 0;
    TimedActions actions_;
};

} // namespace wardlock::shell
