#pragma once

#include "platform/ui/AnimationClock.h"
#include "shell/input/TimedActions.h"

#include <optional>

namespace wardlock::shell {

/// Real time for a front end with a loop of its own: it waits timeToNext() at most, then calls runDue(). Time
/// passes while the machine is asleep, too; what became due meanwhile runs after it.
class SteadyClock : public platform::AnimationClock {
public:
    SteadyClock();

    Time now() override;
    void after(Time delay, std::function<void()> action) override;

    /// Returns zero when an action is due, none while no action waits.
    std::optional<Time> timeToNext();
    void runDue();

private:
    Time start_;
    TimedActions actions_;
};

} // namespace wardlock::shell
