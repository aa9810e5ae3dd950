#include "window/items/SwitchStyle.h"

#include <QEasingCurve>
#include <QImage>

#include <algorithm>
#include <cmath>
#include <vector>

namespace wardlock::window {

namespace {

constexpr double usualRim = 2;
constexpr std::size_t picturesKept = 8;
const QColor knobEdge(0, 0, 0, 40);

void draw(QPainter& painter, const SwitchStyle& style) {
    const QRectF all({}, style.size());
    const double rim = usualRim * style.growth;
    const double knob = all.height() - 2 * rim;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(style.track);
    painter.drawRoundedRect(all, all.height() / 2, all.height() / 2);

    const double way = all.width() - knob - 2 * rim;
    const double part = QEasingCurve(QEasingCurve::InOutQuad).valueForProgress(style.position);
    const QRectF circle(rim + way * (style.mirrored ? 1 - part : part), rim, knob, knob);
    painter.setBrush(Qt::white);
    painter.drawEllipse(circle);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(knobEdge, 1));
    painter.drawEllipse(circle.adjusted(0.5, 0.5, -0.5, -0.5));
}

struct Picture {
    SwitchStyle style;
    double scale;
    QImage image;
};

/// The pictures of the last few styles, the latest first.
std::vector<Picture>& pictures() {
    thread_local std::vector<Picture> pictures;
    return pictures;
}

const QImage& pictureOf(const SwitchStyle& style, double scale) {
    auto& known = pictures();
    const auto same = std::ranges::find_if(
        known, [&](const Picture& picture) { return picture.style == style && picture.scale == scale; });
    if (same != known.end()) {
        std::rotate(known.begin(), same, same + 1);
        return known.front().image;
    }
    QImage image((style.size() * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.scale(scale, scale);
    draw(painter, style);
    painter.end();
    image.setDevicePixelRatio(scale);
    known.insert(known.begin(), {style, scale, image});
    known.resize(std::min(known.size(), picturesKept));
    return known.front().image;
}

bool isWhole(double number) {
    return number == std::floor(number);
}

} // namespace

void paintSwitch(QPainter& painter, const SwitchStyle& style) {
    const QTransform place = painter.deviceTransform();
    const bool onWholePixels = isWhole(place.m11()) && isWhole(place.dx()) && isWhole(place.dy());
    if (onWholePixels && isWhole(style.position))
        painter.drawImage(QPointF(), pictureOf(style, place.m11()));
    else
        draw(painter, style);
}

} // namespace wardlock::window
