#include "linux/bus/BusConnection.h"

#include <algorithm>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace platform::bus {

namespace {

/// Messages per turn: a sender that floods the bus must not keep the host from its other work.
constexpr int messagesAtOnce = 64;

/// Returns whether the listening process at the other end is this user's.
bool listenerIsOwn(int socket) {
    ucred listener{};
    socklen_t size = sizeof listener;
    return socket >= 0 && getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &listener, &size) == 0 &&
           listener.uid == geteuid();
}

} // namespace

std::unique_ptr<BusConnection> BusConnection::open(const std::string& address, Peer peer) {
    sd_bus* bus = nullptr;
    if (sd_bus_new(&bus) < 0)
        return nullptr;
    std::unique_ptr<BusConnection> connection(new BusConnection(bus));
    if (sd_bus_set_address(bus, address.c_str()) < 0 || sd_bus_set_bus_client(bus, 1) < 0 ||
        sd_bus_set_exit_on_disconnect(bus, 0) < 0 || sd_bus_start(bus) < 0 ||
        (peer == Peer::OwnUser && !listenerIsOwn(sd_bus_get_fd(bus))))
        return nullptr;
    return connection;
}

std::unique_ptr<BusConnection> BusConnection::openReady(const std::string& address, Peer peer,
                                                        Clock::time_point deadline) {
    auto connection = open(address, peer);
    while (connection && !connection->isReady() && !connection->isLost()) {
        connection->process();
        if (!connection->isReady() && !connection->isLost() && !connection->wait(deadline))
            return nullptr;
    }
    return connection && connection->isReady() ? std::move(connection) : nullptr;
}

BusConnection::~BusConnection() {
    // Without the flush of the other close functions: a stopped bus would block for minutes.
    sd_bus_close(bus_);
    sd_bus_unref(bus_);
}

int BusConnection::descriptor() const {
    return lost_ ? -1 : std::max(-1, sd_bus_get_fd(bus_));
}

short BusConnection::events() const {
    return static_cast<short>(std::max(0, sd_bus_get_events(bus_)));
}

std::optional<BusConnection::Clock::time_point> BusConnection::deadline() const {
    std::uint64_t microseconds = UINT64_MAX;
    if (lost_ || sd_bus_get_timeout(bus_, &microseconds) < 0 || microseconds == UINT64_MAX)
        return std::nullopt;
    return Clock::time_point(std::chrono::microseconds(microseconds));
}

void BusConnection::process() {
    for (int i = 0; i < messagesAtOnce && !lost_; ++i) {
        const int result = sd_bus_process(bus_, nullptr);
        if (result == 0)
            break;
        lost_ = result < 0 || sd_bus_is_open(bus_) <= 0;
    }
    if (!lost_ && uniqueName_.empty() && sd_bus_is_ready(bus_) > 0) {
        const char* name = nullptr;
        if (sd_bus_get_unique_name(bus_, &name) >= 0)
            uniqueName_ = name;
    }
}

bool BusConnection::wait(Clock::time_point deadline) const {
    const auto left = std::chrono::ceil<std::chrono::microseconds>(deadline - Clock::now()).count();
    return left > 0 && sd_bus_wait(bus_, static_cast<std::uint64_t>(left)) != 0;
}

bool BusConnection::send(sd_bus_message* message) {
    // A message that cannot be sent for another reason cannot be sent later either.
    if (sd_bus_send(bus_, message, nullptr) < 0)
        lost_ = sd_bus_is_open(bus_) <= 0;
    return !lost_;
}

std::uint64_t BusConnection::unsent() const {
    std::uint64_t count = 0;
    return sd_bus_get_n_queued_write(bus_, &count) < 0 ? 0 : count;
}

} // namespace platform::bus
