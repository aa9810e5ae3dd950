#pragma once

/// Who hears of changes: the processes on the message bus that listen for the change notification.

#include "platform/base/Export.h"

#include <optional>
#include <string>
#include <vector>

namespace platform {

struct ChangeListener {
    int process = 0;
    /// The name of its program; empty when the system does not report it.
    std::string program;
};

/// Returns the processes that listen now, this one aside; none when there is no bus, or it does not list
/// them. They may serve another device root. Changes nothing and starts no bus; takes seconds at most.
WARDLOCK_API std::optional<std::vector<ChangeListener>> changeListeners();

} // namespace platform
