#pragma once

/// How this user's desktop asks programs to look, as far as it tells. Main thread only.

#include "platform/base/Export.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace platform {

struct DesktopAppearance {
    /// None: the desktop has no preference, or there is none to ask.
    std::optional<bool> dark;
    bool highContrast = false;
    bool reducedMotion = false;

    bool operator==(const DesktopAppearance&) const = default;
};

/// Follows the desktop's look for as long as it lives.
class DesktopAppearanceMonitor {
public:
    virtual ~DesktopAppearanceMonitor() = default;

    /// What the desktop said last; no preferences before its first answer.
    virtual const DesktopAppearance& look() const = 0;
    /// Waits for the first answer, or until it is certain that there will be none. False: the time is over;
    /// an answer that comes later counts as a change.
    virtual bool waitForAnswer(std::chrono::milliseconds patience) = 0;
};

/// Asks the desktop's settings portal over the session bus, without waiting for it; `changed` is called from
/// the main loop, and within waitForAnswer(), when look() has become another one. Where there is no bus or no
/// portal nothing ever changes.
WARDLOCK_API std::unique_ptr<DesktopAppearanceMonitor>
monitorDesktopAppearance(std::function<void()> changed);

} // namespace platform
