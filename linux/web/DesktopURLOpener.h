#pragma once

#include "platform/ui/URLOpener.h"

#include <chrono>
#include <memory>

namespace platform::web {

class PendingOpenings;

/// Opens a URL with the program that is registered for its scheme, through xdg-open. Without a display or a
/// registered program nothing happens. The desktop's programs may take seconds, so they run beside the main
/// thread. The destructor waits for them: a URL that was opened right before the end of the process counts.
class DesktopURLOpener final : public URLOpener {
public:
    /// `timeout` is how long a failure to open may take to show. A program that still runs then has the URL.
    explicit DesktopURLOpener(std::chrono::milliseconds timeout = std::chrono::milliseconds(1500));
    ~DesktopURLOpener() override;

    bool openURL(std::string_view url) override;

private:
    const std::chrono::milliseconds timeout_;
    const std::shared_ptr<PendingOpenings> openings_;
};

} // namespace platform::web
