#pragma once

#include "window/FullText.h"
#include "window/HeldKeys.h"
#include "window/KeptInput.h"
#include "window/KeyboardUse.h"
#include "window/SettingsWindow.h"
#include "window/WindowMemory.h"
#include "window/items/Appearance.h"

#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QSocketNotifier>

#include <memory>

namespace wardlock::window {

/// The window itself, which is the screen of the device: loads the QML over the models. Main thread only;
/// needs a QGuiApplication.
class WindowHost : public QObject {
public:
    /// The clock outlives this object. loaded() returns whether it worked.
    WindowHost(platform::AnimationClock& clock, double transitionSeconds);
    ~WindowHost() override;

    /// Returns null when the QML could not be loaded; the reasons are on standard error.
    QQuickWindow* window() const;
    SettingsWindow& settings() { return settings_; }
    Appearance& appearance() { return appearance_; }

    /// Gives the window its remembered size, place and size of text, and remembers them when it is destroyed;
    /// before it is shown.
    void rememberPlace();
    /// Shows the window with its first frame complete: the pictures of the first page are in it.
    void show();
    /// Brings the window to the front of the desktop, with the token that a later start has from the desktop
    /// for it; empty for none.
    void raise(const std::string& activationToken);

    /// Has SIGINT, SIGTERM and SIGHUP end the application's loop from now on. What is being typed is stored
    /// first; when it cannot be, the reason is on standard error and the exit code is 1.
    void endOnSignals();

private:
    /// Notes what the user does in the window.
    bool eventFilter(QObject* window, QEvent* event) override;
    void end();
    void followApplicationState(Qt::ApplicationState state);
    void updateScreen() const;
    void keepInput();

    SettingsWindow settings_;
    Appearance appearance_;
    KeyboardUse keyboard_;
    FullText fullText_{keyboard_};
    HeldKeys heldKeys_;
    KeptInput keptInput_;
    QQmlApplicationEngine engine_;
    std::unique_ptr<WindowMemory> memory_;
    std::unique_ptr<QSocketNotifier> stop_;
    bool active_ = false;
};

} // namespace wardlock::window
