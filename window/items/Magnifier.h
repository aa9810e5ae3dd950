#pragma once

#include "window/items/PaintedItem.h"

#include <QColor>

namespace wardlock::window {

/// The sign of a search.
class Magnifier : public PaintedItem {
    Q_OBJECT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)
    Q_PROPERTY(double thickness MEMBER thickness_ NOTIFY changed)

public:
    explicit Magnifier(QQuickItem* parent = nullptr);

    QColor color() const { return color_; }
    void setColor(const QColor& color);
    void paint(QPainter& painter) override;

signals:
    void changed();

private:
    QColor color_;
    double thickness_ = 2;
};

} // namespace wardlock::window
