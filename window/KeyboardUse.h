#pragma once

#include <QObject>

namespace wardlock::window {

/// Whether the user moves through the window by keyboard now, in QML `keyboard`: from a key that moves,
/// chooses or leaves until the next press of the mouse or touch. Only then does the window show which item
/// has the keyboard focus. Typing alone does not count: a text field shows its cursor.
class KeyboardUse : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool inUse READ isInUse NOTIFY changed)

public:
    bool isInUse() const { return inUse_; }

signals:
    void changed();

private:
    bool eventFilter(QObject* window, QEvent* event) override;
    void set(bool inUse);

    bool inUse_ = false;
};

} // namespace wardlock::window
