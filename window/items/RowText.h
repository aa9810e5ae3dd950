#pragma once

#include <QPainter>
#include <QTextLayout>

namespace wardlock::window {

class Theme;

/// The text of a row, laid out in the available width: one line of body text. Large letters, and all letters
/// in a narrow window, take more lines rather than lose the end. They are smaller where a word would be wider
/// than a line, though never smaller than usual ones. Text that is still too long loses its end for "…", or
/// its beginning where the end makes the difference, as in identifiers.
class RowText {
public:
    RowText(const QString& text, const Theme& theme, double width, Qt::TextElideMode loses = Qt::ElideRight);

    double width() const { return room_; }
    double height() const { return height_; }
    /// What is shown of the text, and how large its letters are.
    QString text() const { return layout_.text(); }
    int size() const { return layout_.font().pixelSize(); }
    bool isElided() const { return elided_; }
    /// The lines begin at the left edge, or, mirrored, at the right one.
    void draw(QPainter& painter, QPointF topLeft, QColor color) const;

private:
    /// Returns how much of the text fits.
    int layOut();

    const double room_;
    const int lines_;
    const bool mirrored_;
    double height_ = 0;
    bool elided_ = false;
    QTextLayout layout_;
};

} // namespace wardlock::window
