#pragma once

#include "bench/Timing.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace wardlock::bench {

/// The other process of a two-process measurement: this program again. It reports when its callback ran and
/// which value it received. A pipe between the two carries the reports; both use the machine's clock.
class Listener {
public:
    /// Starts this program with `arguments` and waits until it reports that it listens. Ends the process when
    /// it does not.
    explicit Listener(const std::vector<std::string>& arguments);
    ~Listener();
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// Makes $BENCH_EVENTS (1000) changes, 1 and 0 in turn, each when the one before has been received.
    /// Reports the time from the start of the change to the listener's callback.
    void measure(const Row& row, const std::function<void(bool)>& change);

    /// An operation that changes something, and its listener.
    struct Measured {
        Row row;
        Listener& listener;
        std::function<void(bool)> change;
    };

    /// Measures two operations, change by change in turn.
    static void measureInterleaved(const Measured& one, const Measured& other);

    /// Waits for the callback with `value`; returns its time, or 0 when none came.
    std::uint64_t timeOf(bool value) const;

    /// In the other process: reports that it listens.
    static void ready();
    /// In the other process, from the callback: reports the received value.
    static void saw(bool value);

private:
    struct Reply {
        std::uint64_t time;
        std::uint64_t value;
    };

    /// Makes one change; returns false when its callback did not come. A null `samples` is a warm-up.
    static bool measureOnce(const Measured& measured, bool value, Samples* samples);
    static void reportWith(const Measured& measured, Samples samples, int lost);
    static void send(std::uint64_t value);
    bool receive(Reply& reply, int milliseconds) const;
    int process_ = -1;
    int replies_ = -1;
    mutable int stale_ = 0;
};

} // namespace wardlock::bench
