#pragma once

#include <QObject>

namespace wardlock::window {

/// What the user works with. Whether the user moves through the window by keyboard now, in QML `keyboard`:
/// from a key that moves, chooses or leaves until the next press of the mouse or touch. Only then does the
/// window show which item has the keyboard focus. Typing alone does not count: a text field shows its cursor.
class KeyboardUse : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool inUse READ isInUse NOTIFY changed)
    /// Whether the mouse was moved over the window. Until then Qt takes it to be in the first corner.
    Q_PROPERTY(bool mouseMoved READ wasMouseMoved NOTIFY mouseMovedForTheFirstTime)

public:
    bool isInUse() const { return inUse_; }
    bool wasMouseMoved() const { return mouseMoved_; }

signals:
    void changed();
    void mouseMovedForTheFirstTime();

private:
    bool eventFilter(QObject* window, QEvent* event) override;
    void set(bool inUse);

    bool inUse_ = false;
    bool mouseMoved_ = false;
};

} // namespace wardlock::window
