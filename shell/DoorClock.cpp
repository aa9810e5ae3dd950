#include "shell/DoorClock.h"

#include <memory>

namespace wardlock::shell {

void DoorClock::after(double seconds, std::function<void()> action) {
    clock_.after(seconds, [this, alive = std::weak_ptr(alive_), action = std::move(action)] {
        if (alive.lock())
            door_.enter(action);
    });
}

} // namespace wardlock::shell
