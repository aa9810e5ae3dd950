#pragma once

#include "platform/ui/UIActivityIndicatorView.h"
#include "platform/ui/UIAlertView.h"
#include "platform/ui/UIWebView.h"

#include <memory>
#include <string>

namespace wardlock {

/// The repository's listing of the maker's packages in a web view, under a spinner that turns while a page
/// loads. A load that fails leaves the page as it is and shows no message.
class DeveloperView : public platform::UIView, public platform::UIWebViewDelegate {
public:
    /// Starts the load.
    static std::shared_ptr<DeveloperView> initWithFrame(const platform::CGRect& frame);
    explicit DeveloperView(const platform::CGRect& frame) : UIView(frame) {}

    const std::shared_ptr<platform::UIActivityIndicatorView>& activity() const { return activity_; }
    void setActivity(std::shared_ptr<platform::UIActivityIndicatorView> activity) {
        activity_ = std::move(activity);
    }

    void setupTextViewWithFrame(const platform::CGRect& frame);

    /// Creates the alert of a failed load, which is never shown. Virtual because nothing else reveals that it
    /// was created.
    virtual std::shared_ptr<platform::UIAlertView> failureAlert() const;

    void webViewDidStartLoad(platform::UIWebView& webView) override;
    void webViewDidFinishLoad(platform::UIWebView& webView) override;
    void webViewDidFailLoadWithError(platform::UIWebView& webView, const std::string& error) override;

private:
    std::shared_ptr<platform::UIActivityIndicatorView> activity_;
};

} // namespace wardlock
