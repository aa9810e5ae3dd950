#pragma once

#include "window/items/Theme.h"

#include <QPainter>
#include <QRectF>

namespace wardlock::window {

class RowText;

/// Where a row stands in its card.
struct PlaceInCard {
    bool first = false;
    bool last = false;

    bool operator==(const PlaceInCard&) const = default;
};

/// Draws the parts of rows that only are looked at, with the colours of one Theme, onto one row of a size.
/// Mirrored where the application reads from right to left: all places are counted from where reading begins.
class RowPainter {
public:
    RowPainter(QPainter& painter, const Theme& look, QSizeF row);

    /// The row's part of the card, over the whole row; round corners show the ground.
    void card(PlaceInCard place, QColor color) const;
    /// A line as thin as the screen can show, at the bottom, from `start` to the row's end.
    void separator(double start) const;
    /// A picture within the square of an icon.
    void icon(const QImage& picture) const;
    /// In the middle of the row's height.
    void text(const RowText& text, double start, QColor color) const;

private:
    /// What begins at `start` and is so wide, where it is really.
    double left(double start, double width) const;

    QPainter& painter_;
    const Theme& look_;
    QSizeF row_;
    bool mirrored_;
};

/// The picture, as large as it fits into the square, in its middle.
void drawPicture(QPainter& painter, const QImage& picture, const QRectF& square);

} // namespace wardlock::window
