#include "shell/input/BoundaryClock.h"

#include <memory>

namespace wardlock::shell {

void BoundaryClock::after(Time delay, std::function<void()> action) {
    clock_.after(delay, [this, alive = std::weak_ptr(alive_), action = std::move(action)] {
        if (alive.lock())
            boundary_.enter(action);
    });
}

} // namespace wardlock::shell
