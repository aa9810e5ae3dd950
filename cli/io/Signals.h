#pragma once

#include <csignal>
#include <initializer_list>

namespace wardlock::cli {

/// Signals that a loop can wait for: none is lost between a check and the wait. Only one object for a signal
/// at a time; the destructor restores the former signal mask.
class Signals {
public:
    /// Throws std::system_error when no descriptor can be opened.
    explicit Signals(std::initializer_list<int> signals);
    ~Signals();
    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;

    /// Readable once one of the signals has arrived, until it is taken.
    int descriptor() const { return descriptor_; }
    /// Takes what has arrived.
    void take() const;
    /// Takes what has arrived and runs the default action of `signal`: SIGTSTP stops the process, unless no
    /// shell could continue it. Returns after the process was continued.
    void obey(int signal) const;

private:
    sigset_t set_;
    sigset_t before_;
    int descriptor_;
};

} // namespace wardlock::cli
