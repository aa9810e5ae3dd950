#include "shell/guard/IdleTimer.h"

#include <algorithm>
#include <utility>

namespace wardlock::shell {

namespace {

constexpr std::chrono::hours longestIdleness{1};
/// A clock's action is late by the time for which the machine was asleep.
constexpr std::chrono::minutes longestWait{1};

} // namespace

void IdleTimer::run(bool runs) {
    if (std::exchange(runs_, runs) == runs || !runs)
        return;
    lastActivity_ = clock_.now();
    if (!waits_)
        wait();
}

void IdleTimer::noteActivity() {
    notifyIfIdle();
    lastActivity_ = clock_.now();
}

void IdleTimer::notifyIfIdle() {
    if (!runs_ || clock_.now() - lastActivity_ < longestIdleness)
        return;
    lastActivity_ = clock_.now();
    idle_();
}

void IdleTimer::wait() {
    const Time left = lastActivity_ + longestIdleness - clock_.now();
    waits_ = true;
    clock_.after(std::min<Time>(left, longestWait), [this] {
        waits_ = false;
        notifyIfIdle();
        if (runs_)
            wait();
    });
}

} // namespace wardlock::shell
