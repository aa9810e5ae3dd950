#pragma once

#include "platform/ui/AnimationClock.h"

#include <functional>
#include <map>

namespace doubles {

/// A clock that stands still until it is stepped. It is the process's clock while it lives.
class ManualClock : public platform::AnimationClock {
public:
    ManualClock() { setCurrent(this); }
    ~ManualClock() override { setCurrent(nullptr); }

    Time now() override { return now_; }
    void after(Time delay, std::function<void()> action) override {
        actions_.emplace(now_ + delay, std::move(action));
    }

    /// Lets the time pass, running what falls due at its own moment.
    void step(double seconds) {
        const Time end = now_ + time(seconds);
        while (!actions_.empty() && actions_.begin()->first <= end) {
            auto due = actions_.extract(actions_.begin());
            now_ = due.key();
            due.mapped()();
        }
        now_ = end;
    }
    std::size_t waiting() const { return actions_.size(); }

private:
    Time now_{};
    std::multimap<Time, std::function<void()>> actions_;
};

} // namespace doubles
