#include "window/items/Magnifier.h"

#include <QPainter>

#include <cmath>

namespace wardlock::window {

namespace {

constexpr double lensOfWidth = 0.7;

} // namespace

Magnifier::Magnifier(QQuickItem* parent) : PaintedItem(parent) {
    setImplicitSize(19, 19);
    connect(this, &Magnifier::changed, this, [this] { update(); });
}

void Magnifier::setColor(const QColor& color) {
    if (color == color_)
        return;
    color_ = color;
    emit changed();
}

void Magnifier::paint(QPainter& painter) {
    const double edge = thickness_ / 2;
    const double lens = lensOfWidth * width() - thickness_;
    // From the edge of the lens to the corner, where the round end stays inside.
    const double start = edge + lens * (1 + std::sqrt(0.5)) / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color_, thickness_, Qt::SolidLine, Qt::RoundCap));
    painter.drawEllipse(QRectF(edge, edge, lens, lens));
    painter.drawLine(QPointF(start, start), QPointF(width() - edge, height() - edge));
}

} // namespace wardlock::window
