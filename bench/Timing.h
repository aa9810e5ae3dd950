#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace wardlock::bench {

/// What a line of results measured.
struct Row {
    std::string operation;
    /// "project", "peer" or "floor".
    std::string kind;
    std::string name;
};

/// Exit code of a program that does not offer the requested operation.
inline constexpr int notOffered = 3;

std::uint64_t wallNanoseconds();
/// Returns the processor time of the whole process.
std::uint64_t processorNanoseconds();

/// Times of single operations in nanoseconds; `processor` may be empty.
struct Samples {
    std::vector<double> wall;
    std::vector<double> processor;
};

/// Prints one tab-separated line on standard output, with these columns:
/// - operation, case ($BENCH_CASE), kind, name, unit;
/// - median (or the given quantile) of the wall time and of the processor time;
/// - shortest wall time, its 99th percentile, number of samples.
void report(const Row& row, std::string_view unit, Samples samples, double quantile = 0.5);

/// Calls `operation` for about $BENCH_SECONDS (0.5) and reports; one call counts as `per` operations.
void measure(const Row& row, const std::function<void()>& operation, double per = 1);

/// An operation and the one it is compared with. `between` runs before each call of either and is not timed.
struct Pair {
    Row row;
    std::function<void()> operation;
    Row besideRow;
    std::function<void()> beside;
    std::function<void()> between = [] {};
};

/// Calls both in turn, call by call, for about $BENCH_SECONDS each, and reports a line each. A disturbance of
/// the machine then affects both alike.
void measureInterleaved(const Pair& pair);

/// Reports this process's peak resident memory.
void reportPeakMemory(const Row& row);

/// Prevents the compiler from dropping the computation of a number or address that is not used otherwise.
template <class T>
requires std::is_scalar_v<T>
inline void keep(T value) {
    asm volatile("" : : "g"(value) : "memory");
}

} // namespace wardlock::bench
