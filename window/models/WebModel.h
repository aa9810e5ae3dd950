#pragma once

#include "platform/ui/UIActivityIndicatorView.h"
#include "platform/ui/UIWebView.h"
#include "shell/SettingsApplication.h"
#include "window/models/WindowWebEngine.h"

#include <QObject>
#include <QUrl>

#include <memory>

namespace wardlock::window {

/// A page's web view with its spinner, for QML, which loads `url` and reports the outcome.
class WebModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(QUrl url READ url NOTIFY loadAsked)
    Q_PROPERTY(bool loading READ isLoading NOTIFY changed)
    Q_PROPERTY(bool spinnerIsBlack READ spinnerIsBlack CONSTANT)
    /// The reason why there is no engine; empty while there is one, or before it is looked for.
    Q_PROPERTY(QString missing READ missing NOTIFY changed)

public:
    WebModel(std::shared_ptr<platform::UIWebView> view,
             std::shared_ptr<platform::UIActivityIndicatorView> spinner, const WindowWebEngine& engine,
             shell::SettingsApplication& application);

    QUrl url() const;
    bool isLoading() const;
    bool spinnerIsBlack() const;
    const QString& missing() const { return missing_; }
    bool shows(const std::shared_ptr<platform::UIWebView>& view) const { return view_ == view; }

    /// What the engine reports.
    Q_INVOKABLE void started();
    Q_INVOKABLE void finished();
    Q_INVOKABLE void failed(const QString& reason);
    /// To be called when there is no engine on this machine.
    Q_INVOKABLE void engineMissing();
    Q_INVOKABLE bool openInBrowser();

signals:
    /// The page, or another one, is to be loaded.
    void loadAsked();
    void changed();

private:
    std::shared_ptr<platform::UIWebView> view_;
    std::shared_ptr<platform::UIActivityIndicatorView> spinner_;
    shell::SettingsApplication& application_;
    QString missing_;
};

} // namespace wardlock::window
