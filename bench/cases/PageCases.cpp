#include "bench/FilesInMemory.h"
#include "bench/OpenSettings.h"
#include "bench/SampleDocument.h"
#include "bench/peers/Peers.h"
#include "platform/files/DeviceRoot.h"
#include "platform/plist/PropertyList.h"
#include "settings/Constants.h"
#include "settings/DocumentPath.h"

#include <benchmark/benchmark.h>

namespace wardlock::bench {
namespace {

std::string bytesOf(const benchmark::State& state) {
    return platform::dataWithPropertyList(sampleDocument(static_cast<std::size_t>(state.range(0))));
}

/// A document that did not change would not be parsed again.
void changeUntimed(benchmark::State& state, FilesInMemory& files) {
    state.PauseTiming();
    files.changeDocument();
    state.ResumeTiming();
}

/// The list alone: its one read of the document, its rows, their sections.
void BuildRootPage(benchmark::State& state) {
    OpenSettings settings(bytesOf(state));
    FilesInMemory files;
    for (auto _ : state) {
        changeUntimed(state, files);
        benchmark::DoNotOptimize(settings.user.rebuildPage());
    }
}

/// The list with every row and its value read.
void ShowRootPage(benchmark::State& state) {
    OpenSettings settings(bytesOf(state));
    FilesInMemory files;
    for (auto _ : state) {
        changeUntimed(state, files);
        settings.user.rebuildPage();
        settings.user.readRows();
    }
}

void ParseForRootPage(benchmark::State& state) {
    const std::string bytes = bytesOf(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(platform::propertyListWithData(bytes));
}

void TapSwitch(benchmark::State& state) {
    OpenSettings settings(bytesOf(state));
    settings.user.tap({1, 0});
    const auto path = settings.user.find("Siri");
    for (auto _ : state)
        settings.user.tap(path);
}

void ReplaceBytes(benchmark::State& state) {
    const PrivateDevice device;
    const std::string path = platform::pathOnDevice("/document");
    std::filesystem::create_directory(std::filesystem::path(path).parent_path());
    const std::string bytes = bytesOf(state);
    for (auto _ : state)
        replaceFile(path, bytes, platform::Sync::Full);
}

BENCHMARK(ParseForRootPage)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BuildRootPage)->RangeMultiplier(10)->Range(1, 10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(ShowRootPage)->RangeMultiplier(10)->Range(1, 10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReplaceBytes)->Arg(1)->Arg(100)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(TapSwitch)->Arg(1)->Arg(100)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace
} // namespace wardlock::bench
