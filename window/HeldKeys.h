#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickItem>

namespace wardlock::window {

/// Ends the repetition of a key that is held down when the keyboard focus moves: it means the item on which
/// it went down. Only keys that move the focus themselves go on.
class HeldKeys : public QObject {
private:
    bool eventFilter(QObject* window, QEvent* event) override;

    /// What had the keyboard focus when the last key went down.
    QPointer<QQuickItem> pressedOn_;
};

} // namespace wardlock::window
