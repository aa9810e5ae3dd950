#pragma once

#include <systemd/sd-bus.h>

#include <cstdint>
#include <cstdio>

namespace wardlock::test {

/// What a stand-in for a service does once it has its name: prints "ready", and replies until the bus is
/// gone.
inline void serve(sd_bus* bus) {
    std::puts("ready");
    std::fflush(stdout);
    while (sd_bus_process(bus, nullptr) >= 0)
        sd_bus_wait(bus, UINT64_MAX);
}

} // namespace wardlock::test
