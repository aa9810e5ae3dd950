#pragma once

#include "platform/services/MailMessage.h"

#include <systemd/sd-bus.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace platform::mail {

/// A connection to the session bus, for one thread. Null when there is none. It is never flushed: that could
/// wait for a stopped daemon.
struct PortalBusDeleter {
    void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
};
using PortalBus = std::unique_ptr<sd_bus, PortalBusDeleter>;
PortalBus openPortalBus();

/// Returns the version of the portal's email interface; nothing where there is no portal.
std::optional<std::uint32_t> emailPortalVersion(sd_bus& bus, std::chrono::microseconds timeout);

enum class PortalResponse : std::uint32_t { Done = 0, Cancelled = 1, Ended = 2 };

/// Has the portal compose the mail with the files attached, and waits for its response. Returns nothing when
/// it refuses or does not reply in time.
std::optional<PortalResponse> composeEmail(sd_bus& bus, std::uint32_t version, const MailMessage& message,
                                           const std::vector<std::string>& files,
                                           std::chrono::microseconds timeout);

} // namespace platform::mail
