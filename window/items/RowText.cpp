#include "window/items/RowText.h"

#include "window/items/Theme.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <cmath>

namespace wardlock::window {

namespace {

constexpr int linesOfLargeText = 3;
constexpr double roomForDots = 3;

/// Returns the text with places where a line may end: after the "@" of an address, and the dots of an
/// identifier.
QString withLineEnds(QString text, const Theme& theme, Qt::TextElideMode loses) {
    if (!theme.wrapsRows())
        return text;
    if (loses == Qt::ElideLeft)
        text.replace(u'.', QStringLiteral(".\u200b"));
    return text.replace(u'@', QStringLiteral("@\u200b"));
}

QTextOption option(bool wraps) {
    QTextOption option;
    option.setWrapMode(wraps ? QTextOption::WordWrap : QTextOption::NoWrap);
    // The letters are at the same positions as in QML's texts.
    option.setUseDesignMetrics(true);
    return option;
}

/// Returns the width of the widest piece of the text that cannot be broken into lines.
double widestWord(const QString& text, const QFont& font) {
    QTextBoundaryFinder ends(QTextBoundaryFinder::Line, text);
    double widest = 0;
    for (qsizetype start = 0, end = 0; (end = ends.toNextBoundary()) >= 0; start = end) {
        QTextLayout word(text.mid(start, end - start).trimmed(), font);
        word.setTextOption(option(false));
        word.beginLayout();
        const QTextLine line = word.createLine();
        word.endLayout();
        widest = std::max(widest, line.isValid() ? line.naturalTextWidth() : 0);
    }
    return widest;
}

QFont fontOf(const QString& text, const Theme& theme, double room) {
    QFont font = Theme::usualFont();
    font.setPixelSize(theme.body());
    if (theme.body() <= Theme::usualBody || room <= 0)
        return font;
    const int fitting = static_cast<int>(theme.body() * room / std::max(room, widestWord(text, font)));
    // A word that has to be elided in any case may as well be as large as the others.
    if (fitting >= Theme::usualBody)
        font.setPixelSize(fitting);
    return font;
}

} // namespace

RowText::RowText(const QString& text, const Theme& theme, double width, Qt::TextElideMode loses)
    : room_(width), lines_(theme.wrapsRows() ? linesOfLargeText : 1),
      mirrored_(QGuiApplication::layoutDirection() == Qt::RightToLeft),
      layout_(withLineEnds(text, theme, loses)) {
    layout_.setFont(fontOf(layout_.text(), theme, width - roomForDots));
    layout_.setTextOption(option(lines_ > 1));
    // Results of the font's measurement are cached until the text is drawn.
    layout_.setCacheEnabled(true);
    elided_ = layOut() < layout_.text().size();
    if (elided_) {
        const int start = layout_.lineAt(layout_.lineCount() - 1).textStart();
        const QFontMetricsF metrics(layout_.font());
        // Letters measured this way are a little narrower: "…" must not go into a line that is not shown.
        const double room = lines_ > 1 ? room_ - roomForDots : room_;
        const QString all = layout_.text();
        layout_.setText(all.left(start) + metrics.elidedText(all.mid(start), loses, room));
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
