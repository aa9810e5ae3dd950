#include "bench/Person.h"

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

platform::NSIndexPath Person::find(std::string_view label) {
    for (std::size_t section = 0; section < page().sectionCount(); ++section)
        for (std::size_t row = 0; row < page().section(section).rowCount; ++row)
            if (page().row({section, row}).label == label)
                return {section, row};
    giveUp("no row \"" + std::string(label) + "\" on the page \"" + page().title() + '"');
}

void Person::tap(platform::NSIndexPath path) {
    if (const auto answer = settings_.page().tapRow(path); !answer)
        giveUp(answer.reason());
}

void Person::goBack() {
    if (const auto answer = settings_.page().goBack(); !answer)
        giveUp(answer.reason());
}

std::size_t Person::rebuildPage() {
    settings_.run([&] { page().listController()->reloadSpecifiers(); });
    std::size_t rows = 0;
    for (std::size_t section = 0; section < page().sectionCount(); ++section)
        rows += page().section(section).rowCount;
    return rows;
}

void Person::readRows() {
    for (std::size_t section = 0; section < page().sectionCount(); ++section)
        for (std::size_t row = 0, count = page().section(section).rowCount; row < count; ++row)
            keep(page().row({section, row}).label.size());
}

} // namespace wardlock::bench
