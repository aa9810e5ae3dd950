#include "shell/input/DoorClock.h"

#include <memory>

namespace wardlock::shell {

void DoorClock::after(Time delay, std::function<void()> action) {
    clock_.after(delay, [this, alive = std::weak_ptr(alive_), action = std::move(action)] {
        if (alive.lock())
            door_.enter(action);
    });
}

} // namespace wardlock::shell
