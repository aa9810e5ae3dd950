#include "window/items/StrokedItem.h"

namespace wardlock::window {

StrokedItem::StrokedItem(QQuickItem* parent, QSizeF size) : PaintedItem(parent) {
    setImplicitSize(size.width(), size.height());
    connect(this, &StrokedItem::changed, this, [this] { update(); });
}

void StrokedItem::setColor(const QColor& color) {
    if (color == color_)
        return;
    color_ = color;
    emit changed();
}

} // namespace wardlock::window
