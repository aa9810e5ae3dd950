#include "platform/ui/UIWebView.h"

#include "platform/runtime/NSOperationQueue.h"

namespace platform {

namespace {

WebEngine* currentEngine = nullptr;

} // namespace

UIWebViewDelegate::~UIWebViewDelegate() = default;
WebEngine::~WebEngine() = default;
UIWebView::~UIWebView() = default;

WebEngine* WebEngine::current() {
    return currentEngine;
}

void WebEngine::setCurrent(WebEngine* engine) {
    currentEngine = engine;
}

void UIWebView::loadRequest(const NSURLRequest& request) {
    url_ = request.url;
    changed();
    const auto view = self(this);
    if (WebEngine* engine = WebEngine::current()) {
        engine->load(view, request);
        return;
    }
    NSOperationQueue::mainQueue().addOperation([weak = std::weak_ptr(view)] {
        if (const auto waiting = weak.lock())
            waiting->didFailLoad("There is no web engine");
    });
}

void UIWebView::didStartLoad() {
    if (const auto delegate = delegate_.lock())
        delegate->webViewDidStartLoad(*this);
    changed();
}

void UIWebView::didFinishLoad(std::string text, std::vector<WebLink> links) {
    text_ = std::move(text);
    links_ = std::move(links);
    if (const auto delegate = delegate_.lock())
        delegate->webViewDidFinishLoad(*this);
    changed();
}

void UIWebView::didFailLoad(const std::string& error) {
    if (const auto delegate = delegate_.lock())
        delegate->webViewDidFailLoadWithError(*this, error);
    changed();
}

} // namespace platform
