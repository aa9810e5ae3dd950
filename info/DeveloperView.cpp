#include "info/DeveloperView.h"

namespace wardlock {
namespace {

constexpr const char* listing = "http://" WARDLOCK_REPOSITORY_HOST "/packagesfordev.php?name=kitbay";

} // namespace

std::shared_ptr<DeveloperView> DeveloperView::initWithFrame(const platform::CGRect& frame) {
    auto view = std::make_shared<DeveloperView>(frame);
    view->setupTextViewWithFrame(frame);
    return view;
}

void DeveloperView::setupTextViewWithFrame(const platform::CGRect& frame) {
    setActivity(std::make_shared<platform::UIActivityIndicatorView>(
        platform::UIActivityIndicatorViewStyle::WhiteLarge));
    activity_->setColor(platform::UIColor::Black);
    const auto webView = std::make_shared<platform::UIWebView>(frame);
    activity_->setCenter(webView->center());
    webView->setDelegate(self(this));
    webView->loadRequest({listing});
    addSubview(webView);
    addSubview(activity_);
}

void DeveloperView::webViewDidStartLoad(platform::UIWebView&) {
    activity_->startAnimating();
}

void DeveloperView::webViewDidFinishLoad(platform::UIWebView&) {
    activity_->stopAnimating();
}

void DeveloperView::webViewDidFailLoadWithError(platform::UIWebView&, const std::string&) {
    activity_->stopAnimating();
    // Created and released: a failed load stays silent.
    failureAlert();
}

std::shared_ptr<platform::UIAlertView> DeveloperView::failureAlert() const {
    return platform::UIAlertView::initWithTitle(
        "Load Failed",
        "There was an error loading Tavix apps from Cydia. Please make sure you are connected to the "
        "internet.",
        {}, "Dismiss", {});
}

} // namespace wardlock
