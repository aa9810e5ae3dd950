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

/// One connection to a message bus, from the connecting to its loss; a lost one is of no further use. Nothing
/// here waits for the bus, wait() aside.
class BusConnection {
public:
    using Clock = posix::LoopSource::Clock;

    /// Whose process may be at the other end.
    enum class Peer { Any, OwnUser };

    /// Begins to connect. Null: nobody listens, or somebody whom `peer` rules out.
    static std::unique_ptr<BusConnection> open(const std::string& address, Peer peer);
    ~BusConnection();
    BusConnection(const BusConnection&) = delete;
    BusConnection& operator=(const BusConnection&) = delete;

    sd_bus* bus() const { return bus_; }
    bool isLost() const { return lost_; }
    /// Whether the bus has let us in.
    bool isReady() const { return !uniqueName_.empty(); }
    /// Our name on the bus; empty until it has let us in.
    std::string_view uniqueName() const { return uniqueName_; }

    int descriptor() const;
    short events() const;
    std::optional<Clock::time_point> deadline() const;
    /// Does what can be done without waiting, and not more than a bounded number of messages.
    void process();
    /// Waits until there is something to process. False: the time is over.
    bool wait(Clock::time_point deadline) const;

    /// Writes the message as far as the socket takes it and queues the rest. False: the connection is lost.
    bool send(sd_bus_message* message);
    /// How many messages wait for the socket.
    std::uint64_t unsent() const;

private:
    explicit BusConnection(sd_bus* bus) : bus_(bus) {}

    sd_bus* bus_;
    bool lost_ = false;
    std::string uniqueName_;
};

} // namespace platform::bus
