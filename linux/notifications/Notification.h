#pragma once

#include "platform/values/Value.h"

#include <optional>
#include <string>

namespace platform::notifications {

/// A notification from one process of a device root to the others.
struct Notification {
    /// The device root that it concerns (deviceRootIdentity()).
    std::string deviceRoot;
    std::string name;
    std::optional<std::string> object;
    std::optional<Dictionary> userInfo;
};

} // namespace platform::notifications
