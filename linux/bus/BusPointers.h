#pragma once

#include <systemd/sd-bus.h>

#include <memory>

/// Owners of the objects that sd-bus returns.
namespace platform::bus {

struct BusMessageDeleter {
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using BusMessage = std::unique_ptr<sd_bus_message, BusMessageDeleter>;

struct BusSlotDeleter {
    void operator()(sd_bus_slot* slot) const { sd_bus_slot_unref(slot); }
};
/// Releasing a slot ends what it represents: a subscription, a call that waits for its reply.
using BusSlot = std::unique_ptr<sd_bus_slot, BusSlotDeleter>;

} // namespace platform::bus
