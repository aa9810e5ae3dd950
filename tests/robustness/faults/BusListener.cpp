#include "tests/robustness/faults/BusListener.h"

#include "tests/support/TestTimeout.h"

#include <gtest/gtest.h>
#include <systemd/sd-bus.h>

#include <chrono>
#include <string_view>
#include <utility>

namespace wardlock::test {

BusListener::BusListener(const std::string& address) {
    EXPECT_GE(sd_bus_new(&bus_), 0);
    EXPECT_GE(sd_bus_set_address(bus_, address.c_str()), 0);
    EXPECT_GE(sd_bus_set_bus_client(bus_, 1), 0);
    EXPECT_GE(sd_bus_start(bus_), 0);
    EXPECT_GE(sd_bus_match_signal(bus_, nullptr, nullptr, "/com/tavix/DistributedNotifications",
                                  "com.tavix.DistributedNotifications", "Notification", received, this),
              0);
    EXPECT_GE(sd_bus_match_signal(bus_, nullptr, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                  "org.freedesktop.DBus", "NameOwnerChanged", nameChanged, this),
              0);
}

BusListener::~BusListener() {
    sd_bus_flush_close_unref(bus_);
}

std::size_t BusListener::receiveAll() {
    const auto deadline = std::chrono::steady_clock::now() + testTimeout;
    while (true) {
        const int worked = sd_bus_process(bus_, nullptr);
        EXPECT_GE(worked, 0);
        if (worked < 0 || (worked == 0 && others_.empty()))
            break;
        const auto left = std::chrono::duration_cast<std::chrono::microseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0) {
            ADD_FAILURE() << others_.size() << " others are still on the bus";
            break;
        }
        if (worked == 0)
            sd_bus_wait(bus_, static_cast<std::uint64_t>(left.count()));
    }
    return std::exchange(announcements_, 0);
}

int BusListener::received(sd_bus_message* message, void* self, sd_bus_error*) {
    const char* root = nullptr;
    const char* name = nullptr;
    EXPECT_GT(sd_bus_message_read(message, "ss", &root, &name), 0);
    EXPECT_EQ(std::string_view(name), "com.tavix.wardlock/update");
    ++static_cast<BusListener*>(self)->announcements_;
    return 0;
}

int BusListener::nameChanged(sd_bus_message* message, void* self, sd_bus_error*) {
    const char* name = nullptr;
    const char* before = nullptr;
    const char* after = nullptr;
    EXPECT_GT(sd_bus_message_read(message, "sss", &name, &before, &after), 0);
    const std::string_view connection = name;
    if (!connection.starts_with(':'))
        return 0;
    auto& others = static_cast<BusListener*>(self)->others_;
    if (std::string_view(after).empty())
        others.erase(name);
    else
        others.insert(name);
    return 0;
}

} // namespace wardlock::test
