#pragma once

#include "platform/ui/UIWebView.h"

#include <QObject>

#include <memory>

namespace wardlock::window {

/// The engine of the window. The page's QML does the loading, so a load is only passed on to the model that
/// shows the view. A view that is not shown yet is loaded when it is. Where QML has no web engine, pages are
/// loaded as text.
class WindowWebEngine : public QObject, public platform::WebEngine {
    Q_OBJECT

public:
    /// Registers itself as the process's engine while it lives.
    WindowWebEngine();
    ~WindowWebEngine() override;

    void load(const std::shared_ptr<platform::UIWebView>& view,
              const platform::NSURLRequest& request) override;

    /// Loads every page as text from now on.
    void showText();
    bool showsText() const { return text_ != nullptr; }

signals:
    void loadAsked(const platform::UIWebView* view);

private:
    std::shared_ptr<platform::WebEngine> text_;
};

} // namespace wardlock::window
