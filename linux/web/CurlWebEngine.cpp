#include "linux/web/CurlWebEngine.h"

#include "linux/web/PageEncoding.h"
#include "platform/base/Translation.h"
#include "platform/runtime/NSOperationQueue.h"

#include <algorithm>
#include <cctype>
#include <optional>

namespace platform::web {
namespace {

/// Returns nothing for a page that is too complex to read.
std::optional<PageText> readable(const FetchedPage& page) {
    std::string type = page.contentType;
    std::ranges::transform(type, type.begin(), [](unsigned char c) { return std::tolower(c); });
    if (type.starts_with("text/plain"))
        return plainText(decodedText(page.bytes, type));
    const bool isPage = type.empty() || type.starts_with("text/") || type.find("html") != type.npos;
    return isPage ? htmlText(decodedPage(page.bytes, type), page.url) : PageText();
}

} // namespace

void CurlWebEngine::load(const std::shared_ptr<UIWebView>& view, const NSURLRequest& request) {
    forgetAbandoned();
    const Ticket ticket{view.get(), ++lastNumber_};
    loads_[view.get()] = Load{ticket.number, view, request.url, nullptr};
    NSOperationQueue::mainQueue().addOperation([weak = weak_from_this(), ticket] {
        if (const auto engine = weak.lock())
            engine->begin(ticket);
    });
}

CurlWebEngine::Load* CurlWebEngine::current(Ticket ticket) {
    const auto found = loads_.find(ticket.key);
    if (found == loads_.end() || found->second.number != ticket.number)
        return nullptr;
    return &found->second;
}

void CurlWebEngine::forgetAbandoned() {
    std::erase_if(loads_, [](const auto& load) { return load.second.view.expired(); });
}

void CurlWebEngine::begin(Ticket ticket) {
    Load* load = current(ticket);
    const std::shared_ptr<UIWebView> view = load ? load->view.lock() : nullptr;
    if (!view)
        return;
    view->didStartLoad();
    // The notified code may have requested another page.
    load = current(ticket);
    if (!load)
        return;
    auto completion = [weak = weak_from_this(), ticket](const FetchedPage& page) {
        if (!page.error.empty())
            return hand(weak, ticket, {}, page.error);
        auto text = readable(page);
        hand(weak, ticket, text ? std::move(*text) : PageText(),
             text ? "" : translated("Web", "The page is too complex"));
    };
    load->fetch = std::make_unique<PageFetch>(load->url, options_, view, std::move(completion));
}

void CurlWebEngine::hand(std::weak_ptr<CurlWebEngine> weak, Ticket ticket, PageText page, std::string error) {
    NSOperationQueue::mainQueue().addOperation(
        [weak = std::move(weak), ticket, page = std::move(page), error = std::move(error)] {
            if (const auto engine = weak.lock())
                engine->finish(ticket, page, error);
        });
}

void CurlWebEngine::finish(Ticket ticket, const PageText& page, const std::string& error) {
    Load* load = current(ticket);
    if (!load)
        return;
    const std::shared_ptr<UIWebView> view = load->view.lock();
    loads_.erase(ticket.key);
    if (!view)
        return;
    if (error.empty())
        view->didFinishLoad(page.text, page.links, page.blocks);
    else
        view->didFailLoad(error);
}

} // namespace platform::web
