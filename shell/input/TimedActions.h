#pragma once

#include "platform/ui/AnimationClock.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <utility>

namespace wardlock::shell {

/// Actions that wait for their time on any clock. Those due at the same time run in the order in which they
/// were added. Main thread only.
class TimedActions {
public:
    using Time = platform::AnimationClock::Time;

    void add(Time due, std::function<void()> action);
    /// Returns when the next action is due; none while there is none.
    std::optional<Time> nextDue() const;
    /// Removes and returns the next action that is due at `time`; empty when there is none.
    std::function<void()> takeDue(Time time);

private:
    using Turn = std::pair<Time, std::uint64_t>;

    std::map<Turn, std::function<void()>> waiting_;
    std::uint64_t added_ = 0;
};

} // namespace wardlock::shell
