#pragma once

#include <QQuickItem>

namespace wardlock::window {

/// A part of the window that others can cover. While it is covered it can be seen, but it is not there for
/// hands, for the keyboard, or for assistive technology. Holds the keyboard as a FocusScope does; in QML it
/// needs an Accessible.role.
class Layer : public QQuickItem {
    Q_OBJECT
    Q_PROPERTY(bool covered READ isCovered WRITE setCovered NOTIFY coveredChanged)

public:
    explicit Layer(QQuickItem* parent = nullptr);

    bool isCovered() const { return covered_; }
    void setCovered(bool covered);

signals:
    void coveredChanged();

private:
    bool covered_ = false;
};

} // namespace wardlock::window
