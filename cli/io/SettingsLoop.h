#pragma once

#include "cli/io/Signals.h"
#include "shell/SettingsApplication.h"
#include "shell/input/SteadyClock.h"

#include <chrono>
#include <functional>

namespace wardlock::cli {

/// The main loop of a face without a window: lets the application and its clock do what is due while it
/// waits. SIGINT, SIGTERM and SIGHUP end the waiting. SIGTSTP, a terminal's Ctrl+Z, stops the process once
/// the application has resigned active.
class SettingsLoop {
public:
    /// `clock` may be null: then time stands still here.
    SettingsLoop(shell::SettingsApplication& settings, shell::SteadyClock* clock)
        : settings_(settings), clock_(clock) {}

    /// Called at every turn, when the application has done what was due. A resized terminal makes one.
    void setTurn(std::function<void()> turn) { turn_ = std::move(turn); }

    /// Waits until the descriptor is readable; false when the process is asked to end.
    bool waitForInput(int descriptor);
    /// Waits until `done` holds; false when the time is over or the process is asked to end.
    bool waitUntil(const std::function<bool()>& done, std::chrono::milliseconds timeout);

private:
    /// One turn; answers whether the descriptor is readable (-1: none).
    bool turn(int descriptor, std::chrono::milliseconds longest);
    void suspend();

    shell::SettingsApplication& settings_;
    shell::SteadyClock* clock_;
    std::function<void()> turn_;
    Signals stop_{SIGINT, SIGTERM, SIGHUP};
    Signals resize_{SIGWINCH};
    Signals suspend_{SIGTSTP};
    bool stopped_ = false;
};

} // namespace wardlock::cli
