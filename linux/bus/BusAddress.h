#pragma once

#include <string>

namespace platform::bus {

/// Where the notifications of this user go.
struct BusAddress {
    /// In D-Bus's form; empty: there is no bus.
    std::string text;
    /// The folder of a bus that we start ourselves when nobody listens at the address; empty: another's bus.
    std::string ownFolder;
    /// Whether the environment names it.
    bool isNamed = false;
};

/// DBUS_SESSION_BUS_ADDRESS; else the user's bus in XDG_RUNTIME_DIR, where it exists; else one of our own, in
/// a folder below XDG_RUNTIME_DIR, or below /tmp where that is not a folder of this user, or has too long a
/// name for a socket in it. Reads the environment anew at each call.
BusAddress busAddress();

/// The D-Bus address of a socket at the path.
std::string busAddressOfSocket(const std::string& path);

} // namespace platform::bus
