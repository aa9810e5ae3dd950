// A name and two entries as a D-Bus signal, with sd-bus and nothing around it.
#include "bench/Listener.h"
#include "bench/Timing.h"
#include "bench/peers/Peers.h"

#include <systemd/sd-bus.h>

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace wardlock::bench {

namespace {

constexpr const char* path = "/bench";
constexpr const char* interface = "bench.Settings";
constexpr const char* member = "Changed";

sd_bus* openBus() {
    sd_bus* bus = nullptr;
    if (sd_bus_open_user(&bus) < 0)
        std::exit(1);
    return bus;
}

int arrived(sd_bus_message* message, void*, sd_bus_error*) {
    const char* name = nullptr;
    const char* key = nullptr;
    const char* object = nullptr;
    bool value = false;
    sd_bus_message_read(message, "s", &name);
    sd_bus_message_enter_container(message, 'a', "{ss}");
    while (sd_bus_message_read(message, "{ss}", &key, &object) > 0)
        if (std::string_view(key) == "object")
            value = object[0] == '1';
    Listener::saw(value);
    return 0;
}

} // namespace

void listenForBareSignals() {
    sd_bus* bus = openBus();
    sd_bus_match_signal(bus, nullptr, nullptr, path, interface, member, arrived, nullptr);
    sd_bus_flush(bus);
    Listener::ready();
    for (;;) {
        const int done = sd_bus_process(bus, nullptr);
        if (done < 0)
            std::exit(1);
        if (done == 0)
            sd_bus_wait(bus, UINT64_MAX);
    }
}

BareSignal::BareSignal() : bus_(openBus()) {}

BareSignal::~BareSignal() {
    sd_bus_unref(bus_);
}

void BareSignal::post(bool value) {
    sd_bus_message* message = nullptr;
    sd_bus_message_new_signal(bus_, &message, path, interface, member);
    sd_bus_message_append(message, "sa{ss}", "settings.changed", 2, "key", "kRestrictSiri", "object",
                          value ? "1" : "0");
    sd_bus_send(bus_, message, nullptr);
    sd_bus_flush(bus_);
    sd_bus_message_unref(message);
}

int measureBareSignal(const std::string& operation) {
    if (operation == listenForBareSignalsVerb)
        listenForBareSignals();
    if (operation != "notify")
        return notOffered;
    BareSignal signal;
    Listener listener({"sd-bus", listenForBareSignalsVerb});
    listener.measure({"notify", "peer", "D-Bus signal (sd-bus)"}, [&](bool value) { signal.post(value); });
    return 0;
}

} // namespace wardlock::bench
