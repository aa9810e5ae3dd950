#pragma once

#include "platform/ui/UIView.h"

#include <cstddef>
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

/// A piece of a page's text.
struct WebRun {
    std::string text;
    /// The number of the link that it belongs to, from 1; 0 for none.
    std::size_t link = 0;
    bool operator==(const WebRun&) const = default;
};

/// A part of a page's text on lines of its own: a paragraph, a heading.
struct WebBlock {
    enum class Kind { Text, Heading, ListItem, Preformatted };
    Kind kind = Kind::Text;
    /// Of a heading, from 1; 0 for other kinds.
    int rank = 0;
    /// The number of lists that it is inside.
    int lists = 0;
    /// Whether there is a space between it and the block before.
    bool apart = false;
    /// Neighbours belong to different links. A link whose text is empty has a run without text.
    std::vector<WebRun> runs;
    bool operator==(const WebBlock&) const = default;
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
    /// Requests the last page again, whether or not it was loaded.
    void reload();
    /// Whether there is an earlier page. While a page is requested, and after it failed, the one that is
    /// still shown is the earlier one.
    bool canGoBack() const;
    /// Requests the earlier page; nothing while there is none. A way back that is open or has failed is
    /// requested again.
    void goBack();

    /// The address of the last request; empty before the first.
    const std::string& url() const { return url_; }
    /// Why the last request failed; empty while it is open, and when it did not fail.
    const std::string& error() const { return error_; }
    /// The number of loads that did not fail: another page is shown when it grows.
    std::size_t finishedLoads() const { return finishedLoads_; }
    /// The page's text as far as the engine provides it, for front ends that cannot show the page itself.
    const std::string& text() const { return text_; }
    /// Where the page's links lead, as far as the engine reports them, for front ends that let a person
    /// follow one.
    const std::vector<WebLink>& links() const { return links_; }
    /// The same text in blocks, for front ends that lay it out.
    const std::vector<WebBlock>& blocks() const { return blocks_; }

    /// Called by the engine.
    void didStartLoad();
    void didFinishLoad(std::string text, std::vector<WebLink> links = {}, std::vector<WebBlock> blocks = {});
    void didFailLoad(const std::string& error);

private:
    void load();
    void remember();

    std::weak_ptr<UIWebViewDelegate> delegate_;
    std::string url_;
    std::string error_;
    std::size_t finishedLoads_ = 0;
    std::string text_;
    std::vector<WebLink> links_;
    std::vector<WebBlock> blocks_;
    /// The address of the page that is shown, and of those before it, the last one last.
    std::string shownUrl_;
    std::vector<std::string> earlierUrls_;
    bool goesBack_ = false;
};

} // namespace platform
