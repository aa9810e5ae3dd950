#pragma once

#include "window/items/PaintedItem.h"

#include <QColor>
#include <QPen>

namespace wardlock::window {

/// A sign of lines with round ends, of one colour and thickness.
class StrokedItem : public PaintedItem {
    Q_OBJECT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)
    Q_PROPERTY(double thickness MEMBER thickness_ NOTIFY changed)

public:
    QColor color() const { return color_; }
    void setColor(const QColor& color);

signals:
    void changed();

protected:
    /// `size` is in points, where QML sets no other.
    StrokedItem(QQuickItem* parent, QSizeF size);

    double thickness() const { return thickness_; }
    QPen pen() const { return {color_, thickness_, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin}; }

private:
    QColor color_;
    double thickness_ = 2;
};

} // namespace wardlock::window
