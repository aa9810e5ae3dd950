#include "bench/Timing.h"
#include "bench/contender/Verbs.h"
#include "platform/runtime/Class.h"
#include "platform/services/ALApplicationList.h"
#include "platform/text/NameCollator.h"

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <fstream>
#include <vector>

namespace wardlock::bench {

namespace {

Row row(std::string operation, std::string name) {
    return {std::move(operation), "project", std::move(name)};
}

platform::ALApplicationList& builtList() {
    void* module = dlopen(WARDLOCK_APPLIST_MODULE, RTLD_NOW);
    if (!module) {
        std::fprintf(stderr, "contender: %s\n", dlerror());
        std::exit(1);
    }
    const auto entry = reinterpret_cast<platform::ClassTable (*)()>(dlsym(module, platform::classTableEntry));
    return (*entry().begin())->classMethods<platform::ALApplicationListClass>()->sharedApplicationList();
}

void measureSort(const std::string& name, const std::vector<std::string>& names,
                 platform::NameCollator::Comparison comparison) {
    measure(row("sort", name), [&] {
        platform::NameCollator order(comparison, names.size());
        for (const std::string& text : names)
            order.add(text);
        keep(order.sorted().front());
    });
}

} // namespace

void measureApplicationList() {
    // The user's own device root, whose applications include the desktop's.
    unsetenv("WARDLOCK_DEVICE_ROOT");
    platform::ALApplicationList& list = builtList();
    measure(row("applist", "wardlock"), [&] { keep(list.applications().size()); });
}

void measureSort(const std::string& file) {
    std::ifstream lines(file);
    std::vector<std::string> names;
    for (std::string line; std::getline(lines, line);)
        names.push_back(line);
    measureSort("wardlock, without regard to language", names,
                platform::NameCollator::Comparison::CaseInsensitive);
    measureSort("wardlock, in the user's language", names,
                platform::NameCollator::Comparison::LocalizedCaseInsensitive);
}

} // namespace wardlock::bench
