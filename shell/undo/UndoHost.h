#pragma once

#include <functional>

namespace wardlock::shell {

/// What taking changes back needs of the application.
struct UndoHost {
    /// Reads again what the pages show.
    std::function<void()> refresh;
    /// Returns whether the pages open only after the passcode was entered.
    std::function<bool()> isLocked;
};

inline constexpr const char* lockedReason = "the passcode protects the settings";

} // namespace wardlock::shell
