#include "platform/services/ChangeListeners.h"

#include "linux/bus/BusAddress.h"
#include "linux/bus/BusConnection.h"
#include "linux/bus/BusPointers.h"
#include "linux/notifications/NotificationFormat.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string_view>
#include <system_error>
#include <unistd.h>

namespace platform {

namespace {

using Clock = bus::BusConnection::Clock;

/// Long enough that a busy bus does not count as silent.
constexpr std::chrono::seconds timeout{6};
constexpr const char* daemonName = "org.freedesktop.DBus";
constexpr const char* daemonPath = "/org/freedesktop/DBus";

std::unique_ptr<bus::BusConnection> connect() {
    const bus::BusAddress address = bus::busAddress();
    const auto peer =
        address.privateFolder.empty() ? bus::BusConnection::Peer::Any : bus::BusConnection::Peer::OwnUser;
    return bus::BusConnection::openReady(address.text, peer, Clock::now() + timeout);
}

/// Calls a method of the bus itself, with one string where it takes one. Returns null when it fails.
bus::BusMessage call(bus::BusConnection& connection, const char* interface, const char* member,
                     const char* argument = nullptr) {
    sd_bus_message* created = nullptr;
    if (sd_bus_message_new_method_call(connection.bus(), &created, daemonName, daemonPath, interface,
                                       member) < 0)
        return nullptr;
    const bus::BusMessage request(created);
    if (argument && sd_bus_message_append_basic(created, 's', argument) < 0)
        return nullptr;
    sd_bus_message* reply = nullptr;
    const auto limit = std::chrono::duration_cast<std::chrono::microseconds>(timeout);
    const int result =
        sd_bus_call(connection.bus(), created, static_cast<std::uint64_t>(limit.count()), nullptr, &reply);
    return result < 0 ? nullptr : bus::BusMessage(reply);
}

bool isForNotifications(std::string_view rule) {
    return rule.find(std::string("interface='") + notifications::format::interface + '\'') !=
           std::string_view::npos;
}

/// Reads one entry of the reply: a connection, and whether one of its rules is for notifications.
bool readListener(sd_bus_message* message, std::string& name, bool& listens) {
    const char* connection = nullptr;
    const char* rule = nullptr;
    listens = false;
    if (sd_bus_message_read_basic(message, 's', &connection) <= 0 ||
        sd_bus_message_enter_container(message, 'a', "s") < 0)
        return false;
    name = connection;
    while (sd_bus_message_read_basic(message, 's', &rule) > 0)
        listens = listens || isForNotifications(rule);
    // The list of rules, then the entry.
    const bool listEnded = sd_bus_message_exit_container(message) >= 0;
    return listEnded && sd_bus_message_exit_container(message) >= 0;
}

std::vector<std::string> listeningConnections(sd_bus_message* message) {
    std::vector<std::string> names;
    if (sd_bus_message_enter_container(message, 'a', "{sas}") < 0)
        return names;
    std::string name;
    bool listens = false;
    while (sd_bus_message_enter_container(message, 'e', "sas") > 0 && readListener(message, name, listens))
        if (listens)
            names.push_back(name);
    return names;
}

int processOf(bus::BusConnection& connection, const std::string& name) {
    const auto reply = call(connection, daemonName, "GetConnectionUnixProcessID", name.c_str());
    std::uint32_t process = 0;
    return reply && sd_bus_message_read_basic(reply.get(), 'u', &process) > 0 ? static_cast<int>(process) : 0;
}

/// Returns the program's name as `ps` shows it. The system cuts it, and the program's file has the whole one.
std::string programOf(int process) {
    constexpr std::size_t longestName = 15;
    const std::string folder = "/proc/" + std::to_string(process);
    std::ifstream file(folder + "/comm");
    std::string name;
    std::getline(file, name);
    std::error_code failure;
    const std::string whole = std::filesystem::read_symlink(folder + "/exe", failure).filename();
    return name.size() == longestName && whole.starts_with(name) ? whole : name;
}

} // namespace

std::optional<std::vector<ChangeListener>> changeListeners() {
    const auto connection = connect();
    if (!connection)
        return std::nullopt;
    const auto rules = call(*connection, "org.freedesktop.DBus.Debug.Stats", "GetAllMatchRules");
    if (!rules)
        return std::nullopt;
    std::vector<ChangeListener> listeners;
    for (const std::string& name : listeningConnections(rules.get())) {
        const int process = processOf(*connection, name);
        if (process > 0 && process != ::getpid())
            listeners.push_back({process, programOf(process)});
    }
    return listeners;
}

} // namespace platform
