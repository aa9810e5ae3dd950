#pragma once

/// The appearance that this user's desktop asks of programs, as far as it reports one. Main thread only.

#include "platform/base/Export.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace platform {

struct DesktopAppearance {
    /// Empty: the desktop has no preference, or there is no desktop to ask.
    std::optional<bool> dark;
    bool highContrast = false;
    bool reducedMotion = false;
    /// The factor by which text is to be larger; empty as for `dark`.
    std::optional<double> textScale;

    bool operator==(const DesktopAppearance&) const = default;
};

/// Follows the desktop's appearance for as long as it lives.
class DesktopAppearanceMonitor {
public:
    virtual ~DesktopAppearanceMonitor() = default;

    /// Returns the desktop's last report; no preferences before the first.
    virtual const DesktopAppearance& current() const = 0;
    /// Waits for the first report, or until it is certain that none will come. Returns false when `timeout`
    /// has passed; a later report then counts as a change.
    virtual bool waitForFirstReport(std::chrono::milliseconds timeout) = 0;
};

/// Queries the desktop's settings portal over the session bus, without waiting for it. `changed` is called
/// from the main loop, and within waitForFirstReport(), when current() has changed. Without a bus or a portal
/// nothing ever changes.
WARDLOCK_API std::unique_ptr<DesktopAppearanceMonitor>
monitorDesktopAppearance(std::function<void()> changed);

} // namespace platform
