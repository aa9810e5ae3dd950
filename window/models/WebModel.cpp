#include "window/models/WebModel.h"

#include "platform/ui/UIApplication.h"
#include "window/models/IgnoredResult.h"
#include "window/models/Text.h"

namespace wardlock::window {

WebModel::WebModel(std::shared_ptr<platform::UIWebView> view,
                   std::shared_ptr<platform::UIActivityIndicatorView> spinner, WindowWebEngine& engine,
                   shell::SettingsApplication& application)
    : view_(std::move(view)), spinner_(std::move(spinner)), engine_(engine), application_(application) {
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
    if (engine_.showsText())
        return;
    engine_.showText();
    emit changed();
    reload();
}

QString WebModel::error() const {
    return shownText(view_->error());
}

void WebModel::follow(int link) {
    ignoreResult(application_.page().followLink(static_cast<std::size_t>(link)));
}

void WebModel::goBack() {
    ignoreResult(application_.page().goBackOnWebPage());
}

void WebModel::reload() {
    application_.run([this] { view_->reload(); });
}

bool WebModel::openInBrowser(const QUrl& url) {
    const bool isOfTheWeb = url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    const std::string address = isOfTheWeb ? url.toString(QUrl::FullyEncoded).toStdString() : view_->url();
    return platform::UIApplication::sharedApplication().openURL(address);
}

void WebModel::mayHaveChanged() {
    if (showsText() && shownLoads_ != view_->finishedLoads()) {
        shownLoads_ = view_->finishedLoads();
        text_.show(*view_);
    }
    emit changed();
}

} // namespace wardlock::window
