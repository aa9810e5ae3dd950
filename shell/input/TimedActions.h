#pragma once

#include "platform/ui/AnimationClock.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <utility>

namespace wardlock::shell {

/// Actions that wait for their time on whatever clock keeps them. Those due at the same time come
/// in the order in which they were added. Main thread only.
class TimedActions {
public:
    using Time = platform::AnimationClock::Time;

    void add(Time due, std::function<void()> action);
    /// When the next one is due; none while there is none.
    std::optional<Time> nextDue() const;
    /// Takes out the next one that is due at `time`; empty when none is.
    std::function<void()> takeDue(Time time);

private:
    using Turn = std::pair<Time, std::uint64_t>;

    std::map<Turn, std::function<void()>> waiting_;
    std::uint64_t added_ = 0;
};

} // namespace wardlock::shell
