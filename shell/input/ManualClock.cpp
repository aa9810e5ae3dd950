#include "shell/input/ManualClock.h"

#include <algorithm>

namespace wardlock::shell {

void ManualClock::after(Time delay, std::function<void()> action) {
    actions_.add(now_ + std::max(delay, Time::zero()), std::move(action));
}

/// Three thirds of a second are a second, although none of them is a whole number of nanoseconds.
ManualClock::Time ManualClock::stepLength(double seconds) {
    constexpr double nanosecond = 1e-9;
    const Time length = time(seconds + remainder_ * nanosecond);
    remainder_ += seconds / nanosecond - static_cast<double>(length.count());
    return length;
}

void ManualClock::step(double seconds) {
    const Time end = now_ + stepLength(std::max(seconds, 0.0));
    while (true) {
        const auto due = actions_.nextDue();
        if (!due || *due > end)
            break;
        now_ = std::max(now_, *due);
        actions_.takeDue(now_)();
    }
    now_ = end;
}

} // namespace wardlock::shell
