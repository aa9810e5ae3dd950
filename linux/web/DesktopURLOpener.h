#pragma once

#include "platform/ui/URLOpener.h"

#include <chrono>

namespace platform::web {

/// Opens a URL with the program that is registered for its scheme, through xdg-open. Without a display or a
/// registered program nothing happens.
class DesktopURLOpener final : public URLOpener {
public:
    /// `timeout` is how long a failure to open may take to show. A program that still runs then has the URL.
    explicit DesktopURLOpener(std::chrono::milliseconds timeout = std::chrono::milliseconds(1500))
        : timeout_(timeout) {}

    bool openURL(std::string_view url) override;

private:
    const std::chrono::milliseconds timeout_;
};

} // namespace platform::web
