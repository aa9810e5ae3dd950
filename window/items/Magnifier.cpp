#include "window/items/Magnifier.h"

#include <QPainter>

#include <cmath>

namespace wardlock::window {

namespace {

constexpr double lensOfWidth = 0.7;

} // namespace

void Magnifier::paint(QPainter& painter) {
    const double edge = thickness() / 2;
    const double lens = lensOfWidth * width() - thickness();
    // From the edge of the lens to the corner, where the round end stays inside.
    const double start = edge + lens * (1 + std::sqrt(0.5)) / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pen());
    painter.drawEllipse(QRectF(edge, edge, lens, lens));
    painter.drawLine(QPointF(start, start), QPointF(width() - edge, height() - edge));
}

} // namespace wardlock::window
