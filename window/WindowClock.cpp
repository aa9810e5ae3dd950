#include "window/WindowClock.h"

#include "platform/runtime/ExceptionBoundary.h"

#include <chrono>

namespace wardlock::window {

WindowClock::WindowClock() {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
        platform::callOrTerminate([this] { runDue(); });
        arm();
    });
}

void WindowClock::after(Time delay, std::function<void()> action) {
    SteadyClock::after(delay, std::move(action));
    arm();
}

void WindowClock::arm() {
    if (const auto time = timeToNext())
        timer_.start(std::chrono::ceil<std::chrono::milliseconds>(*time));
}

} // namespace wardlock::window
