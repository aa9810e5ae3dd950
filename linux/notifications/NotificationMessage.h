#pragma once

#include "linux/bus/BusPointers.h"
#include "linux/notifications/Notification.h"

#include <optional>

namespace platform::notifications {

/// The signal that carries the notification. A user info that is too large or too deep is left out, so that
/// observers still hear that something changed. Null when the bus takes no such message: the name or the
/// object is no D-Bus text, or memory ran out.
bus::BusMessage notificationMessage(sd_bus* bus, const Notification& notification);

/// The notification in a signal from anyone; none where it has another form.
std::optional<Notification> readNotification(sd_bus_message* message);

} // namespace platform::notifications
