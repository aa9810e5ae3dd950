#include "platform/ui/UIWebView.h"

#include "platform/base/CurrentService.h"
#include "platform/runtime/NSOperationQueue.h"

namespace platform {

namespace {

class NoWebEngine : public WebEngine {
    void load(const std::shared_ptr<UIWebView>& view, const NSURLRequest&) override {
        NSOperationQueue::mainQueue().addOperation([weak = std::weak_ptr(view)] {
            if (const auto waiting = weak.lock())
                waiting->didFailLoad("There is no web engine");
        });
    }
};

WebEngine& noEngine() {
    static NoWebEngine none;
    return none;
}

constinit CurrentService<WebEngine> currentEngine(noEngine);

} // namespace

UIWebViewDelegate::~UIWebViewDelegate() = default;
WebEngine::~WebEngine() = default;
UIWebView::~UIWebView() = default;

WebEngine& WebEngine::current() {
    return currentEngine.get();
}

void WebEngine::setCurrent(WebEngine* engine) {
    currentEngine.set(engine);
}

void UIWebView::loadRequest(const NSURLRequest& request) {
    url_ = request.url;
    changed();
    WebEngine::current().load(self(this), request);
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
