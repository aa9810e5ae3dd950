#pragma once

#include "bench/Timing.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace wardlock::bench {

/// The other process of a two-process measurement: this program again, which tells when its callback ran and
/// what it saw. A pipe between the two carries the answers; the clock is the machine's, the same in both.
class Listener {
public:
    /// Starts this program with `arguments` and waits until it says that it listens. Ends the process when it
    /// does not.
    explicit Listener(const std::vector<std::string>& arguments);
    ~Listener();
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// Makes $BENCH_EVENTS (1000) changes, 1 and 0 in turn, each when the one before has been seen, and
    /// reports the time from the start of the change to the listener's callback that saw it.
    void measure(const Row& row, const std::function<void(bool)>& change);

    /// Something that is changed, and who listens.
    struct Measured {
        Row row;
        Listener& listener;
        std::function<void(bool)> change;
    };

    /// The same for two, change by change in turn.
    static void measureInTurn(const Measured& one, const Measured& other);

    /// Waits for the callback that saw `value`; its time, or 0 when none came.
    std::uint64_t timeOf(bool value) const;

    /// In the other process: says that it listens.
    static void ready();
    /// In the other process, from the callback: says what was seen.
    static void saw(bool value);

private:
    struct InputResult {
        std::uint64_t time;
        std::uint64_t value;
    };

    /// Makes one change; false when its callback did not come. A null `samples` is a warm-up.
    static bool measureOnce(const Measured& measured, bool value, Samples* samples);
    static void reportWith(const Measured& measured, Samples samples, int lost);
    static void tell(std::uint64_t value);
    bool receive(InputResult& answer, int milliseconds) const;
    int process_ = -1;
    int answers_ = -1;
    mutable int stale_ = 0;
};

} // namespace wardlock::bench
