#pragma once

#include "window/items/PaintedItem.h"

#include <QColor>
#include <QPen>

namespace wardlock::window {

/// A sign of lines with round ends, of one colour and thickness.
class StrokedItem : public PaintedItem {
    Q_OBJECT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)
    /// Before it grows.
    Q_PROPERTY(double thickness MEMBER thickness_ NOTIFY changed)
    /// The factor by which it is larger and thicker than usual.
    Q_PROPERTY(double growth READ growth WRITE setGrowth NOTIFY changed)

public:
    QColor color() const { return color_; }
    void setColor(const QColor& color);
    double growth() const { return growth_; }
    void setGrowth(double growth);

signals:
    void changed();

protected:
    /// `size` is in points, before it grows, where QML sets no other.
    StrokedItem(QQuickItem* parent, QSizeF size);

    double thickness() const { return thickness_ * growth_; }
    QPen pen() const { return {color_, thickness(), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin}; }

private:
    const QSizeF size_;
    QColor color_;
    double thickness_ = 2;
    double growth_ = 1;
};

} // namespace wardlock::window
