#pragma once

#include <systemd/sd-bus.h>

namespace wardlock::fuzz {

/// Reads a message as one that has arrived. The writer must be able to write what the reader accepts, and the
/// reader must read the same again. It must also be printable. Ends the process otherwise.
void checkNotification(sd_bus* bus, sd_bus_message* message);

/// Seals a message as a receiver gets it. Returns false when the bus would have refused it.
bool seal(sd_bus_message* message);

} // namespace wardlock::fuzz
