#pragma once

#include <QObject>
#include <QRect>
#include <QWindow>

#include <optional>

namespace wardlock::window {

class Appearance;

/// Returns the geometry nearest to `wanted` that is wholly within `available`. It becomes smaller only where
/// it does not fit.
QRect heldWithin(QRect available, QRect wanted);

/// Remembers the window's size and place and the chosen size of its text from one start to the next. They
/// belong to the user, not to the device whose settings are shown: a file below the user's folder for
/// configuration contains them.
class WindowMemory : public QObject {
public:
    /// Gives the window what was remembered, held to a screen that exists; to be called before it is shown.
    /// Where nothing was, its own size is held to the screen. Both outlive this object.
    WindowMemory(QWindow& window, Appearance& appearance);
    /// Stores size and place.
    ~WindowMemory() override;

private:
    void restore();
    void followGeometry();
    bool eventFilter(QObject* window, QEvent* event) override;

    QWindow& window_;
    Appearance& appearance_;
    /// The last geometry that the user can return to: neither maximised nor minimised.
    QRect normal_;
};

} // namespace wardlock::window
