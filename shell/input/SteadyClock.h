#pragma once

#include "platform/ui/AnimationClock.h"
#include "shell/input/TimedActions.h"

#include <chrono>
#include <optional>

namespace wardlock::shell {

/// Real time for a front end with a loop of its own: it waits timeToNext() at most, then calls runDue().
class SteadyClock : public platform::AnimationClock {
public:
    Time now() override;
    void after(Time delay, std::function<void()> action) override;

    /// Returns zero when an action is due, none while no action waits.
    std::optional<Time> timeToNext();
    void runDue();

private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    TimedActions actions_;
};

} // namespace wardlock::shell
