#include "linux/notifications/NotificationMessage.h"

#include "linux/bus/BusText.h"
#include "linux/notifications/NotificationFormat.h"
#include "linux/notifications/UserInfoReader.h"
#include "linux/notifications/UserInfoWriter.h"

#include <utility>

namespace platform::notifications {

namespace {

bool appendUserInfo(sd_bus_message* message, const std::optional<Dictionary>& userInfo) {
    return sd_bus_message_open_container(message, 'a', "v") >= 0 &&
           (!userInfo || UserInfoWriter(message).write(*userInfo)) &&
           sd_bus_message_close_container(message) >= 0;
}

bus::BusMessage build(sd_bus* bus, const Notification& notification,
                      const std::optional<Dictionary>& userInfo) {
    sd_bus_message* created = nullptr;
    if (sd_bus_message_new_signal(bus, &created, format::path, format::interface, format::member) < 0)
        return nullptr;
    bus::BusMessage message(created);
    const bool hasObject = notification.object.has_value();
    if (sd_bus_message_append(created, "ss", notification.deviceRoot.c_str(), notification.name.c_str()) <
            0 ||
        sd_bus_message_append(created, "as", hasObject ? 1 : 0,
                              hasObject ? notification.object->c_str() : nullptr) < 0 ||
        !appendUserInfo(created, userInfo))
        return nullptr;
    return message;
}

/// Reads an array of no string or one. Returns false for another form.
bool readObject(sd_bus_message* message, std::optional<std::string>& object) {
    if (sd_bus_message_enter_container(message, 'a', "s") < 0)
        return false;
    const char* text = nullptr;
    if (sd_bus_message_read_basic(message, 's', &text) > 0)
        object = text;
    return sd_bus_message_at_end(message, 0) > 0 && sd_bus_message_exit_container(message) >= 0;
}

/// Reads an array of no variant or one, which is a dictionary. Returns false for another form.
bool readUserInfo(sd_bus_message* message, std::optional<Dictionary>& userInfo) {
    if (sd_bus_message_enter_container(message, 'a', "v") < 0)
        return false;
    if (sd_bus_message_at_end(message, 0) == 0) {
        userInfo = UserInfoReader(message).read();
        if (!userInfo)
            return false;
    }
    return sd_bus_message_at_end(message, 0) > 0 && sd_bus_message_exit_container(message) >= 0;
}

} // namespace

bus::BusMessage notificationMessage(sd_bus* bus, const Notification& notification) {
    if (!bus::isBusText(notification.deviceRoot) || !bus::isBusText(notification.name) ||
        (notification.object && !bus::isBusText(*notification.object)))
        return nullptr;
    auto message = build(bus, notification, notification.userInfo);
    if (!message && notification.userInfo)
        message = build(bus, notification, std::nullopt);
    return message;
}

std::optional<Notification> readNotification(sd_bus_message* message) {
    if (sd_bus_message_has_signature(message, format::signature) <= 0)
        return std::nullopt;
    const char* deviceRoot = nullptr;
    const char* name = nullptr;
    Notification notification;
    if (sd_bus_message_read(message, "ss", &deviceRoot, &name) <= 0 ||
        !readObject(message, notification.object) || !readUserInfo(message, notification.userInfo))
        return std::nullopt;
    notification.deviceRoot = deviceRoot;
    notification.name = name;
    return notification;
}

} // namespace platform::notifications
