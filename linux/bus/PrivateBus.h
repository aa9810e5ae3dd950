#pragma once

#include <string>

namespace platform::bus {

/// A private message bus for machines without a session: a dbus-daemon in a private folder, shared by all
/// processes of the user that find the same folder. It outlives the process that started it.
class PrivateBus {
public:
    enum class Start {
        Running,        ///< A process listens at the folder's socket.
        StartedByOther, ///< Another process is about to start it: try again in a moment.
        Failed,         ///< No dbus-daemon, or the folder cannot be trusted.
        TimedOut,       ///< The dbus-daemon did not listen in time, and was ended.
    };

    explicit PrivateBus(std::string folder) : folder_(std::move(folder)) {}

    /// Creates the folder where it is missing. Returns false when it is not this user's alone: then a
    /// listener there cannot be trusted.
    bool folderIsPrivate() const;

    /// Starts the daemon where no process listens. Waits for at most three seconds.
    Start start() const;

private:
    std::string socketPath() const { return folder_ + "/bus"; }
    std::string configurationPath() const { return folder_ + "/bus.conf"; }
    bool writeConfiguration() const;

    std::string folder_;
};

} // namespace platform::bus
