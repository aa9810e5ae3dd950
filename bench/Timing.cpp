#include "bench/Timing.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <sys/resource.h>

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

void report(const Row& row, std::string_view unit, Samples samples) {
    if (samples.wall.empty())
        return;
    std::ranges::sort(samples.wall);
    std::ranges::sort(samples.processor);
    const std::size_t count = samples.wall.size();
    const double wall = samples.wall[count / 2];
    const double processor = samples.processor.empty() ? wall : samples.processor[count / 2];
    const std::size_t late = std::min(static_cast<std::size_t>(0.99 * static_cast<double>(count)), count - 1);
    const char* name = std::getenv("BENCH_CASE");
    std::printf("%s\t%s\t%s\t%s\t%.*s\t%.3f\t%.3f\t%.3f\t%.3f\t%zu\n", row.operation.c_str(),
                name ? name : "-", row.kind.c_str(), row.name.c_str(), static_cast<int>(unit.size()),
                unit.data(), wall, processor, samples.wall.front(), samples.wall[late], count);
    std::fflush(stdout);
}

void measure(const Row& row, const std::function<void()>& operation, double per) {
    // The first call pays for what later ones find ready.
    double once = wallTimeOf(operation);
    if (once < 1e8)
        once = wallTimeOf(operation);
    // Short operations are timed together, so that the clock costs nothing beside them.
    constexpr double shortest = 2e5;
    const std::size_t batch = once < shortest ? static_cast<std::size_t>(shortest / (once + 1)) + 1 : 1;
    const double divisor = static_cast<double>(batch) * per;
    Samples samples;
    for (std::size_t left = sampleCount(once, batch); left > 0; --left) {
        const std::uint64_t processor = nanoseconds(CLOCK_PROCESS_CPUTIME_ID);
        const std::uint64_t wall = wallNanoseconds();
        for (std::size_t i = 0; i < batch; ++i)
            operation();
        samples.wall.push_back(static_cast<double>(wallNanoseconds() - wall) / divisor);
        samples.processor.push_back(static_cast<double>(nanoseconds(CLOCK_PROCESS_CPUTIME_ID) - processor) /
                                    divisor);
    }
    report(row, "ns", std::move(samples));
}

void reportPeakMemory(const Row& row) {
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    report(row, "KiB", {{static_cast<double>(usage.ru_maxrss)}, {}});
}

} // namespace wardlock::bench
