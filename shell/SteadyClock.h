#pragma once

#include "platform/ui/AnimationClock.h"
#include "shell/TimedActions.h"

#include <chrono>
#include <optional>

namespace wardlock::shell {

/// Real time for a face with a loop of its own: it waits secondsToNext() at most, then calls runDue().
class SteadyClock : public platform::AnimationClock {
public:
    double now() override;
    void after(double seconds, std::function<void()> action) override;

    /// 0 when something is due; none while nothing waits.
    std::optional<double> secondsToNext();
    void runDue();

private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    TimedActions actions_;
};

} // namespace wardlock::shell
