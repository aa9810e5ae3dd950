#pragma once

#include <string>

namespace platform::bus {

/// A message bus of our own, for machines without a session: a dbus-daemon in a private folder, shared by all
/// processes of the user that find the same folder. It lives on after the process that started it.
class PrivateBus {
public:
    enum class Start {
        Running,        ///< Somebody listens at the folder's socket.
        StartedByOther, ///< Another process is about to start it: try again in a moment.
        Failed,         ///< No dbus-daemon, or the folder is not to be trusted.
    };

    explicit PrivateBus(std::string folder) : folder_(std::move(folder)) {}

    /// Makes the folder where it is missing. False: it is not this user's alone, and whoever listens there is
    /// not to be trusted.
    bool folderIsPrivate() const;

    /// Starts the daemon where nobody listens. Bounded: at most three seconds.
    Start start() const;

private:
    std::string socketPath() const { return folder_ + "/bus"; }
    std::string configurationPath() const { return folder_ + "/bus.conf"; }
    bool writeConfiguration() const;

    std::string folder_;
};

} // namespace platform::bus
