// Announces a change of the settings as a foreign program does. It knows the form of the signal,
// and its value is a number of arrays in one another, flattened. Ends when the bus has taken the signal.
// usage: test-forger KEY LEVELS

#include <systemd/sd-bus.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <sys/stat.h>

namespace {

std::string rootIdentity() {
    struct stat status {};
    const char* root = std::getenv("WARDLOCK_DEVICE_ROOT");
    if (!root || stat(root, &status) != 0)
        return {};
    return std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
}

int appendArrays(sd_bus_message* message, int levels) {
    int result = std::min({sd_bus_message_open_container(message, 'v', "(av)"),
                           sd_bus_message_open_container(message, 'r', "av"),
                           sd_bus_message_open_container(message, 'a', "v")});
    for (int level = 0; level < levels; ++level)
        result = std::min(result,
                          sd_bus_message_append(message, "v", "(su)", "array", level + 1 < levels ? 1 : 0));
    for (int i = 0; i < 3; ++i)
        result = std::min(result, sd_bus_message_close_container(message));
    return result;
}

int append(sd_bus_message* message, const char* key, int levels) {
    int result = std::min(
        {sd_bus_message_append(message, "ssas", rootIdentity().c_str(), "com.tavix.wardlock/update", 0),
         sd_bus_message_open_container(message, 'a', "v"),
         sd_bus_message_open_container(message, 'v', "a{sv}"),
         sd_bus_message_open_container(message, 'a', "{sv}"),
         sd_bus_message_append(message, "{sv}", "key", "s", key),
         sd_bus_message_open_container(message, 'e', "sv"), sd_bus_message_append(message, "s", "object"),
         appendArrays(message, levels)});
    for (int i = 0; i < 4; ++i)
        result = std::min(result, sd_bus_message_close_container(message));
    return result;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        return 2;
    sd_bus* bus = nullptr;
    sd_bus_message* message = nullptr;
    const bool sent = sd_bus_open_user(&bus) >= 0 &&
                      sd_bus_message_new_signal(bus, &message, "/com/tavix/DistributedNotifications",
                                                "com.tavix.DistributedNotifications", "Notification") >= 0 &&
                      append(message, argv[1], std::atoi(argv[2])) >= 0 &&
                      sd_bus_send(bus, message, nullptr) >= 0 && sd_bus_flush(bus) >= 0;
    sd_bus_message_unref(message);
    sd_bus_flush_close_unref(bus);
    return sent ? 0 : 1;
}
