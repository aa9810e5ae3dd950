#pragma once

#include "linux/bus/BusConnection.h"
#include "linux/bus/BusPointers.h"
#include "linux/posix/LoopSource.h"
#include "platform/base/Subscription.h"
#include "platform/services/RunningProgram.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace platform::system {

/// The running program that has a name on the bus, "com.tavix.wardlock.KIND.root_DEVICE_INODE". A later start
/// calls org.freedesktop.Application.Activate of its object "/com/tavix/wardlock/KIND". The desktop does the
/// same with the name "com.tavix.wardlock.KIND", which is also the name of the desktop entry. After the loss
/// of the bus it is found no more.
class BusProgram final : public RunningProgram, public posix::LoopSource {
public:
    using Raise = std::function<void(const std::string& activationToken)>;

    /// Returns null when the object cannot be offered.
    static std::unique_ptr<BusProgram> offer(std::unique_ptr<bus::BusConnection> connection,
                                             const std::string& objectPath, Raise raise);
    BusProgram(const BusProgram&) = delete;
    BusProgram& operator=(const BusProgram&) = delete;

    int descriptor() const override;
    short events() const override;
    std::optional<Clock::time_point> deadline() const override;
    void process() override;

    bus::BusConnection& connection() { return *connection_; }
    void setRaise(Raise raise) { raise_ = std::move(raise); }

private:
    BusProgram(std::unique_ptr<bus::BusConnection> connection, Raise raise)
        : connection_(std::move(connection)), raise_(std::move(raise)) {}

    static int onActivate(sd_bus_message* call, void* self, sd_bus_error* error);

    std::unique_ptr<bus::BusConnection> connection_;
    Raise raise_;
    bus::BusSlot object_;
    Subscription turns_;
};

} // namespace platform::system
