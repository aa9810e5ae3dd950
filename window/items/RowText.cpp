#include "window/items/RowText.h"

#include "window/items/Theme.h"

#include <QFontMetricsF>
#include <QGuiApplication>

#include <cmath>

namespace wardlock::window {

namespace {

constexpr int linesOfLargeText = 3;
constexpr double roomForDots = 3;

QFont fontOf(const Theme& theme) {
    QFont font = Theme::usualFont();
    font.setPixelSize(theme.body());
    return font;
}

QTextOption option(bool wraps) {
    QTextOption option;
    option.setWrapMode(wraps ? QTextOption::WordWrap : QTextOption::NoWrap);
    // The letters are at the same positions as in QML's texts.
    option.setUseDesignMetrics(true);
    return option;
}

} // namespace

RowText::RowText(const QString& text, const Theme& theme, double width, Qt::TextElideMode loses)
    : room_(width), lines_(theme.textScale() > 1 ? linesOfLargeText : 1),
      mirrored_(QGuiApplication::layoutDirection() == Qt::RightToLeft), layout_(text, fontOf(theme)) {
    layout_.setTextOption(option(lines_ > 1));
    // Results of the font's measurement are cached until the text is drawn.
    layout_.setCacheEnabled(true);
    if (const int shown = layOut(); shown < text.size()) {
        const int start = layout_.lineAt(layout_.lineCount() - 1).textStart();
        const QFontMetricsF metrics(layout_.font());
        // Letters measured this way are a little narrower: "…" must not go into a line that is not shown.
        const double room = lines_ > 1 ? room_ - roomForDots : room_;
        layout_.setText(text.left(start) + metrics.elidedText(text.mid(start), loses, room));
        layOut();
    }
}

int RowText::layOut() {
    double top = 0;
    int shown = 0;
    bool fits = true;
    layout_.beginLayout();
    for (int i = 0; i < lines_ && fits; ++i) {
        QTextLine line = layout_.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(room_);
        line.setPosition({mirrored_ ? room_ - line.naturalTextWidth() : 0, top});
        top += line.height();
        // A word that is longer than the line is elided, not broken.
        fits = line.naturalTextWidth() <= room_;
        shown = fits ? line.textStart() + line.textLength() : line.textStart();
    }
    layout_.endLayout();
    height_ = top;
    return shown;
}

void RowText::draw(QPainter& painter, QPointF topLeft, QColor color) const {
    painter.setPen(color);
    layout_.draw(&painter, topLeft);
}

} // namespace wardlock::window
