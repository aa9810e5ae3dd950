#pragma once

#include "platform/values/Value.h"

#include <optional>
#include <string>

namespace platform::notifications {

/// What one process of a device root tells the others.
struct Notification {
    /// Which device root it concerns (deviceRootIdentity()).
    std::string deviceRoot;
    std::string name;
    std::optional<std::string> object;
    std::optional<Dictionary> userInfo;
};

} // namespace platform::notifications
