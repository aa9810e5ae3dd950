#include "shell/ManualClock.h"

#include <algorithm>

namespace wardlock::shell {

void ManualClock::after(double seconds, std::function<void()> action) {
    actions_.add(now_ + std::max(seconds, 0.0), std::move(action));
}

void ManualClock::step(double seconds) {
    const double end = now_ + std::max(seconds, 0.0);
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
