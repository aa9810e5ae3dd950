#include "apps/AppsListView.h"
#include "bench/InstalledApplications.h"
#include "bench/PrivateDevice.h"
#include "platform/text/NameCollator.h"
#include "settings/Keys.h"
#include "settings/Settings.h"

#include <benchmark/benchmark.h>

namespace wardlock::bench {
namespace {

constexpr platform::CGRect frame{{0, 0}, {390, 844}};

void SortNames(benchmark::State& state, platform::NameCollator::Comparison comparison) {
    const std::vector<std::string> names = sampleNames(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        platform::NameCollator order(comparison, names.size());
        for (const std::string& name : names)
            order.add(name);
        benchmark::DoNotOptimize(order.sorted());
    }
}

/// The model of a picker: both sorts, without the library's own listing.
void SetUpArrays(benchmark::State& state) {
    const PrivateDevice device;
    device.storeDocument(1);
    const InstalledApplications installed(static_cast<std::size_t>(state.range(0)));
    const auto view = AppsListView::initWithFrame(frame);
    for (auto _ : state)
        view->setupArrays();
}

/// A cell that scrolls into view, created from one that scrolled out of it.
void ProvideCell(benchmark::State& state) {
    const PrivateDevice device;
    device.storeDocument(1);
    const auto count = static_cast<std::size_t>(state.range(0));
    const InstalledApplications installed(count);
    const auto view = AppsListView::initWithFrame(frame);
    const auto table = view->tableView();
    std::size_t row = 0;
    for (auto _ : state) {
        auto cell = table->takeCell({0, row});
        table->giveBack(std::move(cell));
        row = row + 1 < count ? row + 1 : 0;
    }
}

BENCHMARK_CAPTURE(SortNames, withoutLanguage, platform::NameCollator::Comparison::CaseInsensitive)
    ->RangeMultiplier(10)
    ->Range(100, 100000);
BENCHMARK_CAPTURE(SortNames, inTheUsersLanguage, platform::NameCollator::Comparison::LocalizedCaseInsensitive)
    ->RangeMultiplier(10)
    ->Range(100, 100000);
BENCHMARK(SetUpArrays)->RangeMultiplier(10)->Range(100, 100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(ProvideCell)->RangeMultiplier(10)->Range(100, 100000);

} // namespace
} // namespace wardlock::bench
