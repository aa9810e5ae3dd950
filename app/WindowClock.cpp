#include "app/WindowClock.h"

#include <chrono>
#include <cmath>

namespace wardlock::app {

WindowClock::WindowClock() {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
        runDue();
        arm();
    });
}

void WindowClock::after(double seconds, std::function<void()> action) {
    SteadyClock::after(seconds, std::move(action));
    arm();
}

void WindowClock::arm() {
    if (const auto seconds = secondsToNext())
        timer_.start(std::chrono::milliseconds(static_cast<long>(std::ceil(*seconds * 1000))));
}

} // namespace wardlock::app
