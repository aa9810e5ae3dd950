#include "window/items/Chevron.h"

#include <QGuiApplication>

#include <cmath>

namespace wardlock::window {

namespace {

constexpr double armOfHeight = 0.7;

} // namespace

Chevron::Chevron(QQuickItem* parent) : StrokedItem(parent, {8, 13}) {
    connect(qApp, &QGuiApplication::layoutDirectionChanged, this, [this] { update(); });
}

void Chevron::paint(QPainter& painter) {
    const bool mirrored = QGuiApplication::layoutDirection() == Qt::RightToLeft;
    // The arms are at right angles; their round ends are part of their length.
    const double reach = (armOfHeight * height() - thickness()) / std::sqrt(2.0);
    const double forward = back_ == mirrored ? reach / 2 : -reach / 2;
    const QPointF middle(width() / 2, height() / 2);
    const QPointF arrow[] = {middle + QPointF(-forward, -reach), middle + QPointF(forward, 0),
                             middle + QPointF(-forward, reach)};
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pen());
    painter.drawPolyline(arrow, static_cast<int>(std::size(arrow)));
}

} // namespace wardlock::window
