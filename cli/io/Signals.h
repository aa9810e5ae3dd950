#pragma once

#include <csignal>
#include <initializer_list>

namespace wardlock::cli {

/// Signals as something a loop can wait for: none slips in between a look and the wait. One object for a
/// signal at a time; the signals' former handling comes back with its end.
class Signals {
public:
    /// Throws std::system_error when the machine has no descriptor left.
    explicit Signals(std::initializer_list<int> signals);
    ~Signals();
    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;

    /// Readable once one of the signals has arrived, until it is taken.
    int descriptor() const { return descriptor_; }
    /// Takes what has arrived.
    void take() const;
    /// Takes what has arrived and has the signal do what it would have done: SIGTSTP stops the process,
    /// unless nobody is there to continue it. Comes back when that is over.
    void obey(int signal) const;

private:
    sigset_t set_;
    sigset_t before_;
    int descriptor_;
};

} // namespace wardlock::cli
