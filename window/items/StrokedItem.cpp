#include "window/items/StrokedItem.h"

namespace wardlock::window {

StrokedItem::StrokedItem(QQuickItem* parent, QSizeF size) : PaintedItem(parent), size_(size) {
    setImplicitSize(size.width(), size.height());
    connect(this, &StrokedItem::changed, this, [this] { update(); });
}

void StrokedItem::setGrowth(double growth) {
    if (growth == growth_)
        return;
    growth_ = growth;
    const QSize size = (size_ * growth).toSize();
    setImplicitSize(size.width(), size.height());
    emit changed();
}

void StrokedItem::setColor(const QColor& color) {
    if (color == color_)
        return;
    color_ = color;
    emit changed();
}

} // namespace wardlock::window
