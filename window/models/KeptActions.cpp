#include "window/models/KeptActions.h"

namespace wardlock::window {

namespace {

/// As many as taps and keys.
constexpr std::size_t mostKept = 8;

} // namespace

void KeptActions::perform(QObject& asked, std::function<void()> action) {
    if (!screen_.isInTransition())
        action();
    else if (kept_.size() < mostKept)
        kept_.push_back({&asked, std::move(action)});
}

void KeptActions::deliver() {
    while (!kept_.empty() && !screen_.isInTransition()) {
        const Kept next = std::move(kept_.front());
        kept_.erase(kept_.begin());
        if (next.asked)
            next.action();
    }
}

} // namespace wardlock::window
