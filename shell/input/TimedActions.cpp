#include "shell/input/TimedActions.h"

namespace wardlock::shell {

void TimedActions::add(Time due, std::function<void()> action) {
    waiting_.emplace(Turn{due, added_++}, std::move(action));
}

std::optional<TimedActions::Time> TimedActions::nextDue() const {
    return waiting_.empty() ? std::nullopt : std::optional(waiting_.begin()->first.first);
}

std::function<void()> TimedActions::takeDue(Time time) {
    if (waiting_.empty() || waiting_.begin()->first.first > time)
        return {};
    return std::move(waiting_.extract(waiting_.begin()).mapped());
}

} // namespace wardlock::shell
