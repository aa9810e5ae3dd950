#include "window/items/RowPainter.h"

#include "window/items/RowText.h"

#include <QGuiApplication>
#include <QImage>

#include <cmath>

namespace wardlock::window {

RowPainter::RowPainter(QPainter& painter, const Theme& theme, QSizeF row)
    : painter_(painter), theme_(theme), row_(row),
      mirrored_(QGuiApplication::layoutDirection() == Qt::RightToLeft) {}

double RowPainter::left(double start, double width) const {
    return mirrored_ ? row_.width() - start - width : start;
}

void RowPainter::card(PlaceInCard place, QColor color) const {
    const QRectF all({}, row_);
    if (!place.first && !place.last)
        return painter_.fillRect(all, color);
    painter_.fillRect(all, theme_.ground());
    // The corners beyond the row's end belong to its neighbours.
    const QRectF card = all.adjusted(0, place.first ? 0 : -theme_.corner, 0, place.last ? 0 : theme_.corner);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(color);
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.drawRoundedRect(card, theme_.corner, theme_.corner);
}

void RowPainter::separator(double start) const {
    const double thickness = 1 / painter_.deviceTransform().m11();
    const double width = row_.width() - start;
    painter_.fillRect(QRectF(left(start, width), row_.height() - thickness, width, thickness),
                      theme_.separator());
}

void RowPainter::icon(const QImage& picture) const {
    const int side = theme_.icon();
    const double top = std::ceil((row_.height() - side) / 2);
    drawPicture(painter_, picture, QRectF(left(theme_.inset(), side), top, side, side));
}

void RowPainter::text(const RowText& text, double start, QColor color) const {
    const double top = std::round((row_.height() - text.height()) / 2);
    text.draw(painter_, {left(start, text.width()), top}, color);
}

void drawPicture(QPainter& painter, const QImage& picture, const QRectF& square) {
    if (picture.isNull())
        return;
    QRectF place({}, QSizeF(picture.size()).scaled(square.size(), Qt::KeepAspectRatio));
    place.moveCenter(square.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, picture);
}

} // namespace wardlock::window
