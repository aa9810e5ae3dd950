#pragma once

#include "window/items/Theme.h"

#include <QPainter>
#include <QRectF>

namespace wardlock::window {

class RowText;

/// The position of a row in its card.
struct PlaceInCard {
    bool first = false;
    bool last = false;

    bool operator==(const PlaceInCard&) const = default;
};

/// Draws the parts of a row that take no input, with the colours of one Theme. Mirrored where the application
/// reads from right to left: all positions are counted from where reading begins.
class RowPainter {
public:
    RowPainter(QPainter& painter, const Theme& theme, QSizeF row);

    /// Draws the row's part of the card, over the whole row; round corners show the ground.
    void card(PlaceInCard place, QColor color) const;
    /// Draws a line as thin as the screen can show, at the bottom, from `start` to the row's end.
    void separator(double start) const;
    /// Draws a picture within the square of an icon.
    void icon(const QImage& picture) const;
    /// Draws the text in the middle of the row's height.
    void text(const RowText& text, double start, QColor color) const;

private:
    /// Returns the left edge of a part that begins at `start` and has that width, mirrored or not.
    double left(double start, double width) const;

    QPainter& painter_;
    const Theme& theme_;
    QSizeF row_;
    bool mirrored_;
};

/// Draws the picture in the middle of the square, as large as it fits.
void drawPicture(QPainter& painter, const QImage& picture, const QRectF& square);

} // namespace wardlock::window
