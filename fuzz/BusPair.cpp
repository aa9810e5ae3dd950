#include "fuzz/BusPair.h"

#include "fuzz/Check.h"

#include <array>
#include <sys/socket.h>

namespace wardlock::fuzz {

BusPair::BusPair() {
    std::array<int, 2> ends{};
    check(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()) == 0, "socketpair");
    const sd_id128_t id{};
    check(sd_bus_new(&receiver_) >= 0 && sd_bus_new(&sender_) >= 0 &&
              sd_bus_set_fd(receiver_, ends[0], ends[0]) >= 0 &&
              sd_bus_set_fd(sender_, ends[1], ends[1]) >= 0 && sd_bus_set_server(sender_, 1, id) >= 0 &&
              sd_bus_set_exit_on_disconnect(receiver_, 0) >= 0 && sd_bus_start(sender_) >= 0 &&
              sd_bus_start(receiver_) >= 0,
          "two ends of a connection");
    while (sd_bus_is_ready(receiver_) == 0 || sd_bus_is_ready(sender_) == 0)
        check(sd_bus_process(sender_, nullptr) >= 0 && sd_bus_process(receiver_, nullptr) >= 0, "handshake");
}

BusPair::~BusPair() {
    for (sd_bus* bus : {receiver_, sender_}) {
        sd_bus_close(bus);
        sd_bus_unref(bus);
    }
}

bool BusPair::send(std::string_view bytes) {
    const int socket = sd_bus_get_fd(sender_);
    check(::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(bytes.size()),
          "the socket takes a small message at once");
    int result = 0;
    while ((result = sd_bus_process(receiver_, nullptr)) > 0) {
    }
    return result == 0 && sd_bus_is_open(receiver_) > 0;
}

} // namespace wardlock::fuzz
