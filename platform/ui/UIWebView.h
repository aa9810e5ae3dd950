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

/// A place in a page that leads to another one.
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

/// Loads pages for web views. The process has one at a time: the engine of the window, or one that fetches
/// the page's text. It reports with the web view's did...() methods, on the main thread, from the host's loop
/// and never from within load().
class WARDLOCK_API WebEngine {
public:
    virtual ~WebEngine();
    /// A load that the view had asked for before is given up without a report. The view is not retained.
    virtual void load(const std::shared_ptr<UIWebView>& view, const NSURLRequest& request) = 0;

    /// Null while there is none: loads then fail.
    static WebEngine* current();
    /// Not owned.
    static void setCurrent(WebEngine* engine);
};

/// A page of the web. Its delegate is not retained.
class WARDLOCK_API UIWebView : public UIView {
public:
    using UIView::UIView;
    ~UIWebView() override;

    void setDelegate(std::weak_ptr<UIWebViewDelegate> delegate) { delegate_ = std::move(delegate); }
    /// Asks the engine for the page; also what following a link does.
    void loadRequest(const NSURLRequest& request);

    /// The address asked for last; empty before the first.
    const std::string& url() const { return url_; }
    /// The page's text as far as the engine gives it, for those who cannot show the page itself.
    const std::string& text() const { return text_; }
    /// Where the page's links lead, as far as the engine tells, for those who let a person follow one.
    const std::vector<WebLink>& links() const { return links_; }

    /// The engine's reports.
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
