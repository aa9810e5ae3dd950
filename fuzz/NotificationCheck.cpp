#include "fuzz/NotificationCheck.h"

#include "fuzz/Check.h"
#include "linux/notifications/NotificationMessage.h"
#include "platform/text/Format.h"

namespace wardlock::fuzz {

bool seal(sd_bus_message* message) {
    return sd_bus_message_seal(message, 1, 0) >= 0 && sd_bus_message_rewind(message, 1) >= 0;
}

void checkNotification(sd_bus* bus, sd_bus_message* message) {
    const auto notification = platform::notifications::readNotification(message);
    if (!notification)
        return;
    platform::stringWithFormat("%@", notification->userInfo);
    const platform::bus::BusMessage written =
        platform::notifications::notificationMessage(bus, *notification);
    check(written && seal(written.get()), "what was read can be written");
    const auto again = platform::notifications::readNotification(written.get());
    check(again && again->name == notification->name && again->object == notification->object &&
              again->userInfo == notification->userInfo,
          "what was read, written and read again is the same");
}

} // namespace wardlock::fuzz
