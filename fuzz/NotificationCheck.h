#pragma once

#include <systemd/sd-bus.h>

namespace wardlock::fuzz {

/// Reads a message as one that has arrived. What the reader accepts, the writer must be able to write, and
/// the reader to read again to the same; and it must be printable. Ends the process when that does not hold.
void checkNotification(sd_bus* bus, sd_bus_message* message);

/// As a receiver gets it. False: the bus would have refused it.
bool seal(sd_bus_message* message);

} // namespace wardlock::fuzz
