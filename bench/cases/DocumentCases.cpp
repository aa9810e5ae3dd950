#include "bench/PrivateDevice.h"
#include "bench/SampleDocument.h"
#include "platform/files/DeviceRoot.h"
#include "platform/plist/PropertyList.h"
#include "platform/plist/PropertyListFile.h"
#include "settings/EnabledAccount.h"
#include "settings/Keys.h"
#include "settings/Settings.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>

namespace wardlock::bench {
namespace {

std::size_t accountsOf(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0));
}

void Parse(benchmark::State& state) {
    const std::string bytes = platform::dataWithPropertyList(sampleDocument(accountsOf(state)));
    for (auto _ : state)
        benchmark::DoNotOptimize(platform::propertyListWithData(bytes));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

void Serialise(benchmark::State& state) {
    const platform::Dictionary document = sampleDocument(accountsOf(state));
    for (auto _ : state)
        benchmark::DoNotOptimize(platform::dataWithPropertyList(document));
}

void Load(benchmark::State& state) {
    const PrivateDevice device;
    const std::string path = device.storeDocument(accountsOf(state));
    const std::string other = path + ".copy";
    std::filesystem::copy_file(platform::pathOnDevice(path), platform::pathOnDevice(other));
    // In turn: the file that was read last would not be parsed again.
    bool first = false;
    for (auto _ : state)
        benchmark::DoNotOptimize(platform::dictionaryWithContentsOfFile((first = !first) ? path : other));
}

void ReadModifyWrite(benchmark::State& state, platform::Sync sync) {
    const PrivateDevice device;
    const std::string path = device.storeDocument(accountsOf(state));
    bool value = false;
    const auto change = [&](platform::MutableDictionary& document) {
        setFirstAccount(document, kRestrictSiri, value = !value);
        return true;
    };
    for (auto _ : state)
        if (!platform::updateFile(path, change, sync).written)
            std::abort();
}

void LookUpInDocument(benchmark::State& state) {
    TweakSettings = platform::MutableDictionary(sampleDocument(1));
    for (auto _ : state)
        benchmark::DoNotOptimize(boolForKey(kEnabled));
}

void LookUpInEnabledAccount(benchmark::State& state) {
    TweakSettings = platform::MutableDictionary(sampleDocument(1));
    EnabledAccount = EnabledAccountNew();
    for (auto _ : state)
        benchmark::DoNotOptimize(AccountBool(kRestrictSiri));
}

constexpr std::int64_t few = 1;
constexpr std::int64_t some = 100;
/// About the most that a file may have.
constexpr std::int64_t many = 10'000;
constexpr std::int64_t most = 100'000;

/// Steps in which the growth of a cost is shown.
constexpr int decade = 10;

BENCHMARK(Parse)->RangeMultiplier(decade)->Range(few, most);
BENCHMARK(Serialise)->RangeMultiplier(decade)->Range(few, most);
BENCHMARK(Load)->RangeMultiplier(decade)->Range(few, many);
BENCHMARK_CAPTURE(ReadModifyWrite, NoSync, platform::Sync::None)->RangeMultiplier(decade)->Range(few, many);
BENCHMARK_CAPTURE(ReadModifyWrite, Data, platform::Sync::Data)->Arg(few)->Arg(some)->UseRealTime();
BENCHMARK_CAPTURE(ReadModifyWrite, Full, platform::Sync::Full)->Arg(few)->Arg(some)->UseRealTime();
BENCHMARK(LookUpInDocument);
BENCHMARK(LookUpInEnabledAccount);

} // namespace
} // namespace wardlock::bench
