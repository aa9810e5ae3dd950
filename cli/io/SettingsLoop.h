#pragma once

#include "cli/io/Signals.h"
#include "platform/base/Subscribers.h"
#include "shell/SettingsApplication.h"
#include "shell/input/SteadyClock.h"

#include <chrono>
#include <functional>

namespace wardlock::cli {

/// The main loop of a front end without a window: runs the due work of the application and its clock while it
/// waits. SIGINT, SIGTERM and SIGHUP end the waiting. SIGTSTP, a terminal's Ctrl+Z, stops the process after
/// the application has resigned active.
class SettingsLoop {
public:
    /// `clock` may be null: then no time passes here.
    SettingsLoop(shell::SettingsApplication& settings, shell::SteadyClock* clock)
        : settings_(settings), clock_(clock) {}

    /// Calls the function at every turn, after the due work, until the subscription ends. A resized terminal
    /// causes a turn.
    platform::Subscription observeTurns(std::function<void()> turn) { return turns_.add(std::move(turn)); }

    /// Calls the function before SIGTSTP stops the process.
    platform::Subscription observeSuspensions(std::function<void()> call) {
        return suspensions_.add(std::move(call));
    }
    /// Calls the function after any stop: others may have used the terminal meanwhile.
    platform::Subscription observeReturns(std::function<void()> call) {
        return returns_.add(std::move(call));
    }

    /// Waits until the descriptor is readable. Returns false when a signal asks the process to end.
    bool waitForInput(int descriptor);
    /// Waits until `done` returns true. Returns false on a timeout, or when a signal asks the process to end.
    bool waitUntil(const std::function<bool()>& done, std::chrono::milliseconds timeout);

private:
    /// Runs one turn. Returns whether the descriptor is readable (-1: none).
    bool turn(int descriptor, std::chrono::milliseconds longest);
    void suspend();
    void followStop();

    shell::SettingsApplication& settings_;
    shell::SteadyClock* clock_;
    platform::Subscribers<std::function<void()>> turns_;
    platform::Subscribers<std::function<void()>> suspensions_;
    platform::Subscribers<std::function<void()>> returns_;
    Signals stop_{SIGINT, SIGTERM, SIGHUP};
    Signals resize_{SIGWINCH};
    Signals suspend_{SIGTSTP};
    Signals continue_{SIGCONT};
    bool stopped_ = false;
};

} // namespace wardlock::cli
