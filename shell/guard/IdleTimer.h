#pragma once

#include "platform/ui/AnimationClock.h"

#include <functional>

namespace wardlock::shell {

/// Notifies the application when the user has done nothing for an hour. Main thread only.
class IdleTimer {
public:
    /// The clock outlives this object, and runs none of its actions after that.
    IdleTimer(platform::AnimationClock& clock, std::function<void()> idle)
        : clock_(clock), idle_(std::move(idle)) {}
    IdleTimer(const IdleTimer&) = delete;
    IdleTimer& operator=(const IdleTimer&) = delete;

    /// Counts from now on, or stops; no effect when it already does.
    void run(bool runs);
    /// To be called before what the user does is carried out: an hour may have passed unnoticed, while the
    /// machine was asleep.
    void noteActivity();

private:
    using Time = platform::AnimationClock::Time;

    void notifyIfIdle();
    void wait();

    platform::AnimationClock& clock_;
    std::function<void()> idle_;
    Time lastActivity_{};
    bool runs_ = false;
    bool waits_ = false;
};

} // namespace wardlock::shell
