#include "app/RowPainter.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QTextLayout>

#include <cmath>

namespace wardlock::app {

namespace {

constexpr double farAway = 1e6;

/// Lays the text out in one line and answers how wide it is.
double layOut(QTextLayout& layout) {
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(farAway);
    layout.endLayout();
    return line.naturalTextWidth();
}

} // namespace

RowPainter::RowPainter(QPainter& painter, const Look& look, QSizeF row)
    : painter_(painter), look_(look), row_(row),
      mirrored_(QGuiApplication::layoutDirection() == Qt::RightToLeft) {}

double RowPainter::left(double start, double width) const {
    return mirrored_ ? row_.width() - start - width : start;
}

void RowPainter::card(PlaceInCard place, QColor color) const {
    const QRectF all({}, row_);
    if (!place.first && !place.last)
        return painter_.fillRect(all, color);
    painter_.fillRect(all, look_.ground());
    // The corners beyond the row's end are the neighbours'.
    const QRectF card = all.adjusted(0, place.first ? 0 : -look_.corner, 0, place.last ? 0 : look_.corner);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(color);
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.drawRoundedRect(card, look_.corner, look_.corner);
}

void RowPainter::separator(double start) const {
    const double thickness = 1 / painter_.deviceTransform().m11();
    const double width = row_.width() - start;
    painter_.fillRect(QRectF(left(start, width), row_.height() - thickness, width, thickness),
                      look_.separator());
}

void RowPainter::icon(const QImage& picture) const {
    const double top = std::ceil((row_.height() - look_.icon) / 2);
    drawPicture(painter_, picture, QRectF(left(look_.inset, look_.icon), top, look_.icon, look_.icon));
}

void RowPainter::text(const QString& text, double start, double end, QColor color) const {
    QFont font(look_.family());
    font.setPixelSize(look_.body());
    // The same letters at the same places as in QML's texts.
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    option.setUseDesignMetrics(true);
    QTextLayout layout(text, font);
    layout.setTextOption(option);
    double width = layOut(layout);
    if (width > end - start) {
        layout.setText(QFontMetricsF(font).elidedText(text, Qt::ElideRight, end - start));
        width = layOut(layout);
    }
    const double top = std::round((row_.height() - std::ceil(layout.boundingRect().height())) / 2);
    painter_.setPen(color);
    layout.draw(&painter_, {left(start, width), top});
}

void drawPicture(QPainter& painter, const QImage& picture, const QRectF& square) {
    if (picture.isNull())
        return;
    QRectF place({}, QSizeF(picture.size()).scaled(square.size(), Qt::KeepAspectRatio));
    place.moveCenter(square.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, picture);
}

} // namespace wardlock::app
