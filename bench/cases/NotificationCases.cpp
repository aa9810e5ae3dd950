#include "bench/NotificationPair.h"
#include "bench/PrivateDevice.h"

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace wardlock::bench {
namespace {

void Announce(benchmark::State& state) {
    const PrivateDevice device;
    bool value = false;
    for (auto _ : state)
        announce(value = !value);
}

void AnnounceToCallbackOfAnotherProcess(benchmark::State& state) {
    const PrivateDevice device;
    const Listener listener({listenForNotificationsVerb});
    bool value = false;
    for (auto _ : state) {
        const std::uint64_t start = wallNanoseconds();
        announce(value = !value);
        const std::uint64_t seen = listener.timeOf(value);
        if (seen == 0)
            std::abort();
        state.SetIterationTime(static_cast<double>(seen - start) * 1e-9);
    }
}

BENCHMARK(Announce);
BENCHMARK(AnnounceToCallbackOfAnotherProcess)->UseManualTime();

} // namespace
} // namespace wardlock::bench
