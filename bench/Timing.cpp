#include "bench/Timing.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>

namespace wardlock::bench {

namespace {

std::uint64_t nanoseconds(clockid_t clock) {
    timespec time;
    clock_gettime(clock, &time);
    return static_cast<std::uint64_t>(time.tv_sec) * 1'000'000'000 + static_cast<std::uint64_t>(time.tv_nsec);
}

double wallTimeOf(const std::function<void()>& operation) {
    const std::uint64_t start = wallNanoseconds();
    operation();
    return static_cast<double>(wallNanoseconds() - start);
}

double budgetNanoseconds() {
    const char* seconds = std::getenv("BENCH_SECONDS");
    return (seconds ? std::atof(seconds) : 0.5) * 1e9;
}

/// Adds the times of one call.
void sample(const std::function<void()>& operation, Samples& samples) {
    const std::uint64_t processor = processorNanoseconds();
    const std::uint64_t wall = wallNanoseconds();
    operation();
    samples.wall.push_back(static_cast<double>(wallNanoseconds() - wall));
    samples.processor.push_back(static_cast<double>(processorNanoseconds() - processor));
}

std::size_t sampleCount(double once, std::size_t batch) {
    constexpr double tooSlowForMany = 1.5e9;
    if (once > tooSlowForMany)
        return 3;
    return static_cast<std::size_t>(
        std::clamp(budgetNanoseconds() / (once * static_cast<double>(batch) + 1), 5.0, 2000.0));
}

} // namespace

std::uint64_t wallNanoseconds() {
    return nanoseconds(CLOCK_MONOTONIC);
}

std::uint64_t processorNanoseconds() {
    return nanoseconds(CLOCK_PROCESS_CPUTIME_ID);
}

void report(const Row& row, std::string_view unit, Samples samples, double quantile) {
    if (samples.wall.empty())
        return;
    std::ranges::sort(samples.wall);
    std::ranges::sort(samples.processor);
    const auto at = [](const std::vector<double>& sorted, double share) {
        const auto place = static_cast<std::size_t>(share * static_cast<double>(sorted.size()));
        return sorted[std::min(place, sorted.size() - 1)];
    };
    const double wall = at(samples.wall, quantile);
    const double processor = samples.processor.empty() ? wall : at(samples.processor, quantile);
    const char* name = std::getenv("BENCH_CASE");
    std::printf("%s\t%s\t%s\t%s\t%.*s\t%.3f\t%.3f\t%.3f\t%.3f\t%zu\n", row.operation.c_str(),
                name ? name : "-", row.kind.c_str(), row.name.c_str(), static_cast<int>(unit.size()),
                unit.data(), wall, processor, samples.wall.front(), at(samples.wall, 0.99),
                samples.wall.size());
    std::fflush(stdout);
}

void measure(const Row& row, const std::function<void()>& operation, double per) {
    // A warm-up: the first call fills what later ones reuse.
    double once = wallTimeOf(operation);
    if (once < 1e8)
        once = wallTimeOf(operation);
    // Short operations are timed together, so that the cost of the clock does not count.
    constexpr double shortest = 2e5;
    const std::size_t batch = once < shortest ? static_cast<std::size_t>(shortest / (once + 1)) + 1 : 1;
    const double divisor = static_cast<double>(batch) * per;
    Samples samples;
    for (std::size_t left = sampleCount(once, batch); left > 0; --left) {
        const std::uint64_t processor = processorNanoseconds();
        const std::uint64_t wall = wallNanoseconds();
        for (std::size_t i = 0; i < batch; ++i)
            operation();
        samples.wall.push_back(static_cast<double>(wallNanoseconds() - wall) / divisor);
        samples.processor.push_back(static_cast<double>(processorNanoseconds() - processor) / divisor);
    }
    report(row, "ns", std::move(samples));
}

void measureInterleaved(const Pair& pair) {
    // A warm-up: the first calls fill what later ones reuse.
    Samples first, samples, beside;
    for (int i = 0; i < 3; ++i) {
        pair.between();
        sample(pair.operation, first);
        pair.between();
        sample(pair.beside, first);
    }
    const double once = std::max(first.wall[first.wall.size() - 2], first.wall.back());
    for (std::size_t i = 0, count = sampleCount(once, 1); i < count; ++i)
        for (const bool own : {i % 2 == 0, i % 2 != 0}) {
            pair.between();
            sample(own ? pair.operation : pair.beside, own ? samples : beside);
        }
    report(pair.row, "ns", std::move(samples));
    report(pair.besideRow, "ns", std::move(beside));
}

void reportPeakMemory(const Row& row) {
    // Not getrusage(): its peak includes the parent's memory at the time of the fork.
    std::ifstream status("/proc/self/status");
    std::string word;
    double kibibytes = 0;
    while (status >> word && word != "VmHWM:") {
    }
    if (!(status >> kibibytes)) {
        std::fprintf(stderr, "/proc/self/status has no VmHWM\n");
        std::exit(1);
    }
    report(row, "KiB", {{kibibytes}, {}});
}

} // namespace wardlock::bench
