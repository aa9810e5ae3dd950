#pragma once

#include "window/items/StrokedItem.h"

namespace wardlock::window {

/// The arrow of a row that leads to a page; turned round, the arrow back.
class Chevron : public StrokedItem {
    Q_OBJECT
    Q_PROPERTY(bool back MEMBER back_ NOTIFY changed)

public:
    explicit Chevron(QQuickItem* parent = nullptr);

    void paint(QPainter& painter) override;

private:
    bool back_ = false;
};

} // namespace wardlock::window
