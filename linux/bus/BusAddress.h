#pragma once

#include <string>

namespace platform::bus {

/// Where the notifications of this user go.
struct BusAddress {
    /// In D-Bus's form; empty: there is no bus.
    std::string text;
    /// The folder of the private bus, which this process starts when no process listens; empty: another bus.
    std::string privateFolder;
    /// Whether the environment names it.
    bool isNamed = false;
};

/// Returns the first of these; reads the environment again at each call:
/// - DBUS_SESSION_BUS_ADDRESS;
/// - the user's bus in XDG_RUNTIME_DIR, where it exists;
/// - the private bus, in a folder below XDG_RUNTIME_DIR. It is below /tmp where that is not a folder of this
///   user, or its name is too long for a socket.
BusAddress busAddress();

/// Returns the D-Bus address of a socket at the path.
std::string busAddressOfSocket(const std::string& path);

} // namespace platform::bus
