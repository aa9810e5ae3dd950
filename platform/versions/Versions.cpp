#include "platform/versions/Versions.h"

#include "platform/versions/Version.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <random>

namespace platform {

namespace {

std::string& ownPlace() {
    static std::string place(programPlace);
    return place;
}

std::uint32_t ownProcess() {
    static const std::uint32_t number = [] {
        std::random_device source;
        return std::max<std::uint32_t>(1, source());
    }();
    return number;
}

std::int64_t machineTime() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

std::atomic<VersionClock> chosenClock = nullptr;

} // namespace

void setVersionPlace(std::string_view place) {
    if (isVersionPlace(place))
        ownPlace() = place;
}

VersionOrigin ownVersionOrigin(const Versions& versions) {
    return {.place = ownPlace(), .process = ownProcess(), .action = versions.action, .of = versions.of};
}

void setVersionClock(VersionClock clock) {
    chosenClock = clock;
}

std::int64_t versionTime() {
    const VersionClock clock = chosenClock;
    return clock ? clock() : machineTime();
}

} // namespace platform
