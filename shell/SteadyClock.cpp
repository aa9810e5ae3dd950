#include "shell/SteadyClock.h"

#include <algorithm>

namespace wardlock::shell {

double SteadyClock::now() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
}

void SteadyClock::after(double seconds, std::function<void()> action) {
    actions_.add(now() + std::max(seconds, 0.0), std::move(action));
}

std::optional<double> SteadyClock::secondsToNext() {
    const auto due = actions_.nextDue();
    return due ? std::optional(std::max(*due - now(), 0.0)) : std::nullopt;
}

void SteadyClock::runDue() {
    // The time is taken once: actions that keep asking for another at once do not keep the loop here.
    const double time = now();
    while (const auto action = actions_.takeDue(time))
        action();
}

} // namespace wardlock::shell
