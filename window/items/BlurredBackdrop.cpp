#include "window/items/BlurredBackdrop.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace wardlock::window {

namespace {

constexpr int shrink = 4;
constexpr int radius = 5;
constexpr int passes = 3;
const QColor veil(20, 20, 24, 150);
const QColor veilAlone(60, 60, 66, 245);

/// Applies one box filter along a line of `count` pixels, `stride` apart; `line` is scratch space.
void boxFilter(QRgb* pixels, int count, std::ptrdiff_t stride, int reach, std::vector<QRgb>& line) {
    line.resize(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        line[static_cast<std::size_t>(i)] = pixels[i * stride];
    const auto at = [&](int i) { return line[static_cast<std::size_t>(std::clamp(i, 0, count - 1))]; };
    int red = 0;
    int green = 0;
    int blue = 0;
    const auto add = [&](QRgb pixel, int sign) {
        red += sign * qRed(pixel);
        green += sign * qGreen(pixel);
        blue += sign * qBlue(pixel);
    };
    for (int i = -reach; i <= reach; ++i)
        add(at(i), 1);
    const int width = 2 * reach + 1;
    for (int i = 0; i < count; ++i) {
        pixels[i * stride] = qRgb(red / width, green / width, blue / width);
        add(at(i + reach + 1), 1);
        add(at(i - reach), -1);
    }
}

} // namespace

QImage blurred(const QImage& picture, int reach) {
    QImage image = picture.convertToFormat(QImage::Format_RGB32);
    if (image.isNull())
        return image;
    auto* pixels = reinterpret_cast<QRgb*>(image.bits());
    const std::ptrdiff_t stride = image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
    std::vector<QRgb> line;
    for (int pass = 0; pass < passes; ++pass) {
        for (int y = 0; y < image.height(); ++y)
            boxFilter(pixels + y * stride, image.width(), 1, reach, line);
        for (int x = 0; x < image.width(); ++x)
            boxFilter(pixels + x, image.height(), stride, reach, line);
    }
    return image;
}

void BlurredBackdrop::componentComplete() {
    PaintedItem::componentComplete();
    grab();
}

void BlurredBackdrop::geometryChange(const QRectF& now, const QRectF& before) {
    PaintedItem::geometryChange(now, before);
    if (isComponentComplete() && now.size() != before.size())
        grab();
}

void BlurredBackdrop::grab() {
    const QSize size = (boundingRect().size() / shrink).toSize();
    if (!source_ || size.isEmpty() || !source_->window())
        return;
    grabbing_ = source_->grabToImage(size);
    if (!grabbing_)
        return;
    connect(grabbing_.data(), &QQuickItemGrabResult::ready, this, [this] {
        blurred_ = blurred(grabbing_->image(), radius);
        grabbing_.reset();
        update();
    });
}

void BlurredBackdrop::paint(QPainter& painter) {
    if (blurred_.isNull()) {
        painter.fillRect(boundingRect(), veilAlone);
        return;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(boundingRect(), blurred_);
    painter.fillRect(boundingRect(), veil);
}

} // namespace wardlock::window
