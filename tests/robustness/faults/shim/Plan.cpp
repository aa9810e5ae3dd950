#include "tests/robustness/faults/shim/Plan.h"

#include <cerrno>
#include <sstream>

namespace wardlock::test::shim {

std::optional<Plan> Plan::parse(const std::string& text) {
    std::istringstream words(text);
    Plan plan;
    words >> plan.verb_;
    if (plan.verb_ == "record")
        return plan;
    constexpr std::string_view verbs[] = {"kill", "tear", "fail", "fill", "interrupt", "shorten"};
    bool known = false;
    for (const std::string_view verb : verbs)
        known = known || plan.verb_ == verb;
    if (!known || !(words >> plan.first_) || plan.first_ == 0)
        return std::nullopt;
    if (words.peek() == '-') {
        words.get();
        plan.fromThereOn_ = true;
    }
    const bool hasArgument = plan.verb_ == "fail" || plan.verb_ == "shorten";
    if (hasArgument && (!(words >> plan.argument_) || plan.argument_ <= 0))
        return std::nullopt;
    return plan;
}

Fate Plan::fateOf(std::size_t call, std::string_view function, Room room, std::string_view path) {
    Fate fate;
    if (!concerns(call))
        return fate;
    if (verb_ == "kill")
        fate.killed = true;
    else if (verb_ == "tear")
        fate.torn = function == "write";
    else if (verb_ == "fail")
        fate.error = static_cast<int>(argument_);
    else if (verb_ == "fill")
        fate.error = room == Room::Needed ? ENOSPC : 0;
    else if (verb_ == "shorten")
        fate.most = static_cast<std::size_t>(argument_);
    // A descriptor is gone after an interrupted close: the call is not repeated.
    else if (verb_ == "interrupt" && function != "close" &&
             interrupted_.insert(std::string(function) + ' ' + std::string(path)).second)
        fate.error = EINTR;
    return fate;
}

} // namespace wardlock::test::shim
