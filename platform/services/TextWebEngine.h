#pragma once

#include "platform/base/Export.h"
#include "platform/ui/UIWebView.h"

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>

namespace platform {

/// The bounds of one load, and for tests another address to connect to.
struct TextWebEngineOptions {
    std::size_t largestPage = 1u << 20;
    /// From the beginning of a load to its end, redirections included: a request's time-out on the platform.
    std::chrono::milliseconds timeout = std::chrono::seconds(60);
    /// "host:port:address:port": connections to the first pair go to the second.
    std::string connectTo;
};

/// Returns an engine that fetches pages over http and https and provides their text and links, for front ends
/// that cannot show a page itself. It runs no scripts, keeps no cookies and loads nothing that a page embeds.
/// Main thread only; its reports come from the main queue. Its destruction cancels its loads.
WARDLOCK_API std::shared_ptr<WebEngine> makeTextWebEngine(const TextWebEngineOptions& options = {});

} // namespace platform
