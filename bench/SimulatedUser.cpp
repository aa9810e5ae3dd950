#include "bench/SimulatedUser.h"

#include "bench/Timing.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace wardlock::bench {

namespace {

[[noreturn]] void giveUp(const std::string& why) {
    std::fprintf(stderr, "Settings: %s\n", why.c_str());
    std::exit(1);
}

} // namespace

platform::NSIndexPath SimulatedUser::find(std::string_view label) {
    for (std::size_t section = 0; section < page().sectionCount(); ++section)
        for (std::size_t row = 0; row < page().section(section).rowCount; ++row)
            if (page().row({section, row}).label == label)
                return {section, row};
    giveUp("no row \"" + std::string(label) + "\" on the page \"" + page().title() + '"');
}

void SimulatedUser::tap(platform::NSIndexPath path) {
    if (const auto result = settings_.page().tapRow(path); !result)
        giveUp(result.reason());
}

void SimulatedUser::goBack() {
    if (const auto result = settings_.page().goBack(); !result)
        giveUp(result.reason());
}

std::size_t SimulatedUser::rebuildPage() {
    settings_.run([&] { page().listController()->reloadSpecifiers(); });
    std::size_t rows = 0;
    for (std::size_t section = 0; section < page().sectionCount(); ++section)
        rows += page().section(section).rowCount;
    return rows;
}

void SimulatedUser::readRows() {
    for (std::size_t section = 0; section < page().sectionCount(); ++section)
        for (std::size_t row = 0, count = page().section(section).rowCount; row < count; ++row)
            keep(page().row({section, row}).label.size());
}

} // namespace wardlock::bench
