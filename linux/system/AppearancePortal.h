#pragma once

#include "linux/bus/BusConnection.h"
#include "linux/bus/BusPointers.h"
#include "linux/posix/LoopSource.h"
#include "linux/system/AppearanceSettings.h"
#include "platform/base/Subscription.h"
#include "platform/services/DesktopAppearance.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace platform::system {

/// The appearance that the desktop's settings portal, org.freedesktop.portal.Settings, reports. It reads all
/// settings when the portal is found or restarted, then follows each change. After the loss of the bus the
/// last report stays valid.
class AppearancePortal final : public DesktopAppearanceMonitor, public posix::LoopSource {
public:
    explicit AppearancePortal(std::function<void()> changed);
    AppearancePortal(const AppearancePortal&) = delete;
    AppearancePortal& operator=(const AppearancePortal&) = delete;

    const DesktopAppearance& current() const override { return current_; }
    bool waitForFirstReport(std::chrono::milliseconds timeout) override;

    /// Returns whether the last reply had the contrast; none while the portal has not replied.
    std::optional<bool> reportsContrast() const { return reportsContrast_; }

    int descriptor() const override;
    short events() const override;
    std::optional<Clock::time_point> deadline() const override;
    void process() override;

private:
    bool listen();
    bool listen(const std::string& match, sd_bus_message_handler_t handler, bus::BusSlot& slot);
    bool query();
    void disconnect();
    void readAll(sd_bus_message* reply);
    void readSettings(sd_bus_message* reply, const char* space);

    static int onReply(sd_bus_message* message, void* self, sd_bus_error* error);
    static int onChange(sd_bus_message* message, void* self, sd_bus_error* error);
    static int onOwner(sd_bus_message* message, void* self, sd_bus_error* error);

    std::function<void()> changed_;
    AppearanceSettings settings_;
    DesktopAppearance current_;
    /// The appearance of the last `changed_` call.
    DesktopAppearance reported_;
    bool replied_ = false;
    std::optional<bool> reportsContrast_;
    std::unique_ptr<bus::BusConnection> connection_;
    std::array<bus::BusSlot, AppearanceSettings::namespaces.size()> changes_;
    bus::BusSlot owners_;
    bus::BusSlot query_;
    Subscription turns_;
};

} // namespace platform::system
