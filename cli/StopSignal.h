#pragma once

namespace wardlock::cli {

/// SIGINT and SIGTERM as something a loop can wait for, so that a verb ends in order. One at a time; the
/// signals' former handling comes back with its end.
class StopSignal {
public:
    /// Throws std::system_error when the machine has no descriptor left.
    StopSignal();
    ~StopSignal();
    StopSignal(const StopSignal&) = delete;
    StopSignal& operator=(const StopSignal&) = delete;

    /// Readable once one of the signals has arrived.
    int descriptor() const { return descriptor_; }

private:
    int descriptor_;
};

} // namespace wardlock::cli
