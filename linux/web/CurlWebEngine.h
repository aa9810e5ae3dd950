#pragma once

#include "linux/web/HtmlText.h"
#include "linux/web/PageFetch.h"
#include "platform/services/TextWebEngine.h"

#include <cstdint>
#include <map>
#include <memory>

namespace platform::web {

/// The text engine over libcurl: each load is fetched in a thread of its own and reported from the main
/// queue. Only the last load of a view counts.
class CurlWebEngine final : public WebEngine, public std::enable_shared_from_this<CurlWebEngine> {
public:
    explicit CurlWebEngine(TextWebEngineOptions options) : options_(std::move(options)) {}
    void load(const std::shared_ptr<UIWebView>& view, const NSURLRequest& request) override;

private:
    struct Load {
        std::uint64_t number = 0;
        std::weak_ptr<UIWebView> view;
        std::string url;
        std::unique_ptr<PageFetch> fetch;
    };
    /// Names a load that may have been cancelled meanwhile.
    struct Ticket {
        const UIWebView* key;
        std::uint64_t number;
    };

    /// Returns the load of the ticket, or null when it no longer counts.
    Load* current(Ticket ticket);
    void forgetAbandoned();
    void begin(Ticket ticket);
    /// From a fetch's thread to the main queue.
    static void hand(std::weak_ptr<CurlWebEngine> weak, Ticket ticket, PageText page, std::string error);
    void finish(Ticket ticket, const PageText& page, const std::string& error);

    const TextWebEngineOptions options_;
    std::uint64_t lastNumber_ = 0;
    std::map<const UIWebView*, Load> loads_;
};

} // namespace platform::web
