#pragma once

#include <systemd/sd-bus.h>

#include <memory>

/// Owners of what sd-bus hands out.
namespace platform::bus {

struct BusMessageDeleter {
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using BusMessage = std::unique_ptr<sd_bus_message, BusMessageDeleter>;

struct BusSlotDeleter {
    void operator()(sd_bus_slot* slot) const { sd_bus_slot_unref(slot); }
};
/// Letting go of a slot ends what it stands for: a subscription, a call that waits for its answer.
using BusSlot = std::unique_ptr<sd_bus_slot, BusSlotDeleter>;

} // namespace platform::bus
