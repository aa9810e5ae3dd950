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
constexpr std::size_t mostEarlierPages = 100;

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
    goesBack_ = false;
    load();
}

void UIWebView::reload() {
    if (!url_.empty())
        load();
}

bool UIWebView::canGoBack() const {
    return !shownUrl_.empty() && (url_ != shownUrl_ || !earlierUrls_.empty());
}

void UIWebView::goBack() {
    if (!canGoBack())
        return;
    const bool staysOnShown = url_ != shownUrl_ && !goesBack_;
    goesBack_ = !staysOnShown;
    url_ = staysOnShown ? shownUrl_ : earlierUrls_.back();
    load();
}

void UIWebView::load() {
    error_.clear();
    changed();
    WebEngine::current().load(self(this), {url_});
}

void UIWebView::didStartLoad() {
    if (const auto delegate = delegate_.lock())
        delegate->webViewDidStartLoad(*this);
    changed();
}

void UIWebView::remember() {
    if (goesBack_)
        earlierUrls_.pop_back();
    else if (!shownUrl_.empty() && shownUrl_ != url_)
        earlierUrls_.push_back(shownUrl_);
    if (earlierUrls_.size() > mostEarlierPages)
        earlierUrls_.erase(earlierUrls_.begin());
    goesBack_ = false;
    shownUrl_ = url_;
}

void UIWebView::didFinishLoad(std::string text, std::vector<WebLink> links, std::vector<WebBlock> blocks) {
    remember();
    error_.clear();
    ++finishedLoads_;
    text_ = std::move(text);
    links_ = std::move(links);
    blocks_ = std::move(blocks);
    if (const auto delegate = delegate_.lock())
        delegate->webViewDidFinishLoad(*this);
    changed();
}

void UIWebView::didFailLoad(const std::string& error) {
    error_ = error;
    if (const auto delegate = delegate_.lock())
        delegate->webViewDidFailLoadWithError(*this, error);
    changed();
}

} // namespace platform
