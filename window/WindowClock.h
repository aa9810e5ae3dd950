#pragma once

#include "shell/input/SteadyClock.h"

#include <QTimer>

namespace wardlock::window {

/// Real time, with Qt's event loop as the timer.
class WindowClock : public shell::SteadyClock {
public:
    WindowClock();

    void after(Time delay, std::function<void()> action) override;

private:
    void arm();

    QTimer timer_;
};

} // namespace wardlock::window
