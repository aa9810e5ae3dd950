#pragma once

#include <QQuickItem>

namespace wardlock::window {

/// A part of the window that others can cover. A covered layer is visible, but takes no input and is hidden
/// from the keyboard and from assistive technology. It is a FocusScope; in QML it needs an Accessible.role.
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
