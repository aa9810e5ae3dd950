#pragma once

#include "window/items/PaintedItem.h"

#include <QColor>

namespace wardlock::window {

/// The arrow of a row that leads to a page; turned round, the arrow back.
class Chevron : public PaintedItem {
    Q_OBJECT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)
    Q_PROPERTY(double thickness MEMBER thickness_ NOTIFY changed)
    Q_PROPERTY(bool back MEMBER back_ NOTIFY changed)

public:
    explicit Chevron(QQuickItem* parent = nullptr);

    QColor color() const { return color_; }
    void setColor(const QColor& color);
    void paint(QPainter& painter) override;

signals:
    void changed();

private:
    QColor color_;
    double thickness_ = 2;
    bool back_ = false;
};

} // namespace wardlock::window
