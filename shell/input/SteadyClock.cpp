#include "shell/input/SteadyClock.h"

#include "platform/services/ElapsedTime.h"

#include <algorithm>

namespace wardlock::shell {

SteadyClock::SteadyClock() : start_(platform::elapsedTime()) {}

SteadyClock::Time SteadyClock::now() {
    return platform::elapsedTime() - start_;
}

void SteadyClock::after(Time delay, std::function<void()> action) {
    actions_.add(now() + std::max(delay, Time::zero()), std::move(action));
}

std::optional<SteadyClock::Time> SteadyClock::timeToNext() {
    const auto due = actions_.nextDue();
    return due ? std::optional(std::max(*due - now(), Time::zero())) : std::nullopt;
}

void SteadyClock::runDue() {
    // The time is read once: actions that keep adding others for now cannot keep the loop here.
    const Time time = now();
    while (const auto action = actions_.takeDue(time))
        action();
}

} // namespace wardlock::shell
