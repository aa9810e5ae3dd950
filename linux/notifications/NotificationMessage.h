#pragma once

#include "linux/bus/BusPointers.h"
#include "linux/notifications/Notification.h"

#include <optional>

namespace platform::notifications {

/// Returns the signal that carries the notification. A user info that is too large or too deep is left out,
/// so that observers still learn that something changed. Returns null when the bus takes no such message: the
/// name or the object is not a D-Bus text, or memory ran out.
bus::BusMessage notificationMessage(sd_bus* bus, const Notification& notification);

/// Reads the notification in a signal from any sender; returns nothing where it has another form.
std::optional<Notification> readNotification(sd_bus_message* message);

} // namespace platform::notifications
