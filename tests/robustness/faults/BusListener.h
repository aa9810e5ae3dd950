#pragma once

#include <systemd/sd-bus.h>

#include <memory>
#include <set>
#include <string>

namespace wardlock::test {

/// Another process on the bus, which knows the change notification from its documentation alone. Counts the
/// announcements, and sees who else comes and goes.
class BusListener {
public:
    explicit BusListener(const std::string& address);
    ~BusListener();
    BusListener(const BusListener&) = delete;
    BusListener& operator=(const BusListener&) = delete;

    /// Waits until no other process is on the bus: what the others sent has arrived then, however they
    /// ended. The announcements since the last call.
    std::size_t receiveAll();

private:
    static int received(sd_bus_message* message, void* self, sd_bus_error*);
    static int nameChanged(sd_bus_message* message, void* self, sd_bus_error*);

    sd_bus* bus_ = nullptr;
    std::set<std::string> others_;
    std::size_t announcements_ = 0;
};

} // namespace wardlock::test
