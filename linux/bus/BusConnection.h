#pragma once

#include "linux/bus/BusPointers.h"
#include "linux/posix/LoopSource.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace platform::bus {

/// One connection to a message bus, from connecting to its loss; after a loss it cannot be used again. Only
/// wait() waits for the bus.
class BusConnection {
public:
    using Clock = posix::LoopSource::Clock;

    /// The users whose process may be at the other end.
    enum class Peer { Any, OwnUser };

    /// Starts to connect. Returns null when no process listens, or one that `peer` excludes.
    static std::unique_ptr<BusConnection> open(const std::string& address, Peer peer);
    /// Connects and waits until the bus has accepted the connection. Returns null when it has not by then.
    static std::unique_ptr<BusConnection> openReady(const std::string& address, Peer peer,
                                                    Clock::time_point deadline);
    ~BusConnection();
    BusConnection(const BusConnection&) = delete;
    BusConnection& operator=(const BusConnection&) = delete;

    sd_bus* bus() const { return bus_; }
    bool isLost() const { return lost_; }
    /// Returns whether the bus has accepted the connection.
    bool isReady() const { return !uniqueName_.empty(); }
    /// Returns our name on the bus; empty until the bus has accepted the connection.
    std::string_view uniqueName() const { return uniqueName_; }

    int descriptor() const;
    short events() const;
    std::optional<Clock::time_point> deadline() const;
    /// Processes what needs no waiting, and at most a bounded number of messages.
    void process();
    /// Waits until there is something to process. Returns false when the deadline has passed.
    bool wait(Clock::time_point deadline) const;

    /// Writes the message as far as the socket takes it and queues the rest. Returns false when the
    /// connection is lost.
    bool send(sd_bus_message* message);
    /// Returns the number of messages that wait for the socket.
    std::uint64_t unsent() const;

private:
    explicit BusConnection(sd_bus* bus) : bus_(bus) {}

    sd_bus* bus_;
    bool lost_ = false;
    std::string uniqueName_;
};

} // namespace platform::bus
