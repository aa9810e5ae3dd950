#pragma once

#include "platform/ui/UIActivityIndicatorView.h"
#include "platform/ui/UIWebView.h"
#include "shell/SettingsApplication.h"
#include "window/models/WebTextModel.h"
#include "window/models/WindowWebEngine.h"

#include <QObject>
#include <QUrl>

#include <memory>

namespace wardlock::window {

/// A page's web view with its spinner, for QML. Where there is a web engine, QML loads `url` with it and
/// reports the outcome; else the model has the page's text.
class WebModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(QUrl url READ url NOTIFY loadAsked)
    Q_PROPERTY(bool loading READ isLoading NOTIFY changed)
    Q_PROPERTY(bool spinnerIsBlack READ spinnerIsBlack CONSTANT)
    /// Whether pages are shown as text, for want of an engine.
    Q_PROPERTY(bool showsText READ showsText NOTIFY changed)
    /// The blocks of the text.
    Q_PROPERTY(QAbstractItemModel* text READ text CONSTANT)
    /// Whether a text was loaded.
    Q_PROPERTY(bool loaded READ isLoaded NOTIFY changed)
    /// Why the last request failed; empty when it did not.
    Q_PROPERTY(QString error READ error NOTIFY changed)
    /// Whether there is a text to return to.
    Q_PROPERTY(bool canGoBack READ canGoBack NOTIFY changed)

public:
    WebModel(std::shared_ptr<platform::UIWebView> view,
             std::shared_ptr<platform::UIActivityIndicatorView> spinner, WindowWebEngine& engine,
             shell::SettingsApplication& application);

    QUrl url() const;
    bool isLoading() const;
    bool spinnerIsBlack() const;
    bool showsText() const { return engine_.showsText(); }
    QAbstractItemModel* text() { return &text_; }
    bool isLoaded() const { return shownLoads_ > 0; }
    QString error() const;
    bool canGoBack() const { return view_->canGoBack(); }
    bool shows(const std::shared_ptr<platform::UIWebView>& view) const { return view_ == view; }

    /// What the engine reports.
    Q_INVOKABLE void started();
    Q_INVOKABLE void finished();
    Q_INVOKABLE void failed(const QString& reason);
    /// To be called when there is no engine on this machine.
    Q_INVOKABLE void engineMissing();

    /// The links of the text are numbered from 1.
    Q_INVOKABLE void follow(int link);
    Q_INVOKABLE void goBack();
    Q_INVOKABLE void reload();
    /// Opens the address that the engine shows, else that of the last request.
    Q_INVOKABLE bool openInBrowser(const QUrl& url = {});

    /// To be called when the web view may have changed.
    void mayHaveChanged();

signals:
    /// The page, or another one, is to be loaded.
    void loadAsked();
    void changed();

private:
    std::shared_ptr<platform::UIWebView> view_;
    std::shared_ptr<platform::UIActivityIndicatorView> spinner_;
    WindowWebEngine& engine_;
    shell::SettingsApplication& application_;
    WebTextModel text_;
    std::size_t shownLoads_ = 0;
};

} // namespace wardlock::window
