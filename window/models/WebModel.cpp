#include "window/models/WebModel.h"

#include "platform/ui/UIApplication.h"
#include "window/models/Text.h"

namespace wardlock::window {

WebModel::WebModel(std::shared_ptr<platform::UIWebView> view,
                   std::shared_ptr<platform::UIActivityIndicatorView> spinner, const WindowWebEngine& engine,
                   shell::SettingsApplication& application)
    : view_(std::move(view)), spinner_(std::move(spinner)), application_(application) {
    connect(&engine, &WindowWebEngine::loadAsked, this, [this](const platform::UIWebView* asked) {
        if (asked == view_.get())
            emit loadAsked();
    });
}

QUrl WebModel::url() const {
    return QUrl(toQt(view_->url()));
}

bool WebModel::isLoading() const {
    return spinner_ && spinner_->isAnimating();
}

bool WebModel::spinnerIsBlack() const {
    return spinner_ && spinner_->color() == platform::UIColor::Black;
}

void WebModel::started() {
    application_.run([this] { view_->didStartLoad(); });
}

void WebModel::finished() {
    application_.run([this] { view_->didFinishLoad({}); });
}

void WebModel::failed(const QString& reason) {
    application_.run([&] { view_->didFailLoad(reason.toStdString()); });
}

void WebModel::engineMissing() {
    missing_ = tr("This page needs a web engine, which is not installed.");
    emit changed();
    failed(missing_);
}

bool WebModel::openInBrowser() {
    return platform::UIApplication::sharedApplication().openURL(view_->url());
}

} // namespace wardlock::window
