#include "window/items/PaintedItem.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <cmath>

namespace wardlock::window {

PaintedItem::PaintedItem(QQuickItem* parent, Ground ground) : QQuickItem(parent), ground_(ground) {
    setFlag(ItemHasContents);
}

void PaintedItem::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickItem::itemChange(change, data);
    if (change == ItemDevicePixelRatioHasChanged)
        update();
}

QSGNode* PaintedItem::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    auto* node = static_cast<QSGImageNode*>(old);
    const double scale = window()->effectiveDevicePixelRatio();
    const QSize pixels(static_cast<int>(std::ceil(width() * scale)),
                       static_cast<int>(std::ceil(height() * scale)));
    if (pixels.isEmpty()) {
        delete node;
        return nullptr;
    }
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
    }
    const auto kind =
        ground_ == Ground::Opaque ? QQuickWindow::TextureIsOpaque : QQuickWindow::TextureHasAlphaChannel;
    node->setTexture(window()->createTextureFromImage(picture(pixels, scale), kind));
    // Not the item's own size: every pixel of the picture falls on one of the window's.
    node->setRect({{}, QSizeF(pixels) / scale});
    node->setFiltering(smooth() ? QSGTexture::Linear : QSGTexture::Nearest);
    return node;
}

QImage PaintedItem::picture(QSize pixels, double scale) {
    const bool opaque = ground_ == Ground::Opaque;
    QImage picture(pixels, opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    if (!opaque)
        picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.scale(scale, scale);
    paint(painter);
    return picture;
}

} // namespace wardlock::window
