#pragma once

#include "platform/ui/UIView.h"

#include <memory>
#include <string>
#include <vector>

namespace platform {

/// A request with the platform's default cache policy and time-out.
struct NSURLRequest {
    std::string url;
};

/// A text in a page that leads to another page.
struct WebLink {
    std::string text;
    std::string url;
    bool operator==(const WebLink&) const = default;
};

class UIWebView;

/// Optional methods: empty unless overridden.
class WARDLOCK_API UIWebViewDelegate {
public:
    virtual ~UIWebViewDelegate();
    virtual void webViewDidStartLoad(UIWebView&) {}
    virtual void webViewDidFinishLoad(UIWebView&) {}
    virtual void webViewDidFailLoadWithError(UIWebView&, const std::string& /*error*/) {}
};

/// Loads pages for web views. The process has one at a time: the window's engine, or one that fetches the
/// page's text. It reports through the web view's did...() methods, on the main thread, from the host's loop
/// and never from within load().
class WARDLOCK_API WebEngine {
public:
    virtual ~WebEngine();
    /// An earlier load of the same view is cancelled without a report. The view is not retained.
    virtual void load(const std::shared_ptr<UIWebView>& view, const NSURLRequest& request) = 0;

    /// Returns the process's engine; while none is set, every load fails.
    static WebEngine& current();
    /// Null removes it. The caller keeps ownership.
    static void setCurrent(WebEngine* engine);
};

/// A web page. Its delegate is not retained.
class WARDLOCK_API UIWebView : public UIView {
public:
    using UIView::UIView;
    ~UIWebView() override;

    void setDelegate(std::weak_ptr<UIWebViewDelegate> delegate) { delegate_ = std::move(delegate); }
    /// Requests the page from the engine; following a link does the same.
    void loadRequest(const NSURLRequest& request);

    /// The address of the last request; empty before the first.
    const std::string& url() const { return url_; }
    /// The page's text as far as the engine provides it, for front ends that cannot show the page itself.
    const std::string& text() const { return text_; }
    /// Where the page's links lead, as far as the engine reports them, for front ends that let a person
    /// follow one.
    const std::vector<WebLink>& links() const { return links_; }

    /// Called by the engine.
    void didStartLoad();
    void didFinishLoad(std::string text, std::vector<WebLink> links = {});
    void didFailLoad(const std::string& error);

private:
    std::weak_ptr<UIWebViewDelegate> delegate_;
    std::string url_;
    std::string text_;
    std::vector<WebLink> links_;
};

} // namespace platform
