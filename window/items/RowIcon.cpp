#include "window/items/RowIcon.h"

#include "window/items/RowPainter.h"
#include "window/items/Theme.h"

namespace wardlock::window {

RowIcon::RowIcon(QQuickItem* parent) : PaintedItem(parent) {
    setVisible(false);
}

void RowIcon::setSource(const QString& source) {
    if (source == source_)
        return;
    source_ = source;
    setVisible(!source.isEmpty());
    if (isComponentComplete())
        showSource();
    emit sourceChanged();
}

void RowIcon::componentComplete() {
    PaintedItem::componentComplete();
    if (const auto* theme = Theme::of(*this)) {
        setImplicitSize(theme->icon(), theme->icon());
        connect(theme, &Theme::changed, this, [this, theme] { resize(theme->icon()); });
    }
    showSource();
}

void RowIcon::resize(int side) {
    if (side == implicitWidth())
        return;
    setImplicitSize(side, side);
    showSource();
}

void RowIcon::itemChange(ItemChange change, const ItemChangeData& data) {
    PaintedItem::itemChange(change, data);
    if (change == ItemDevicePixelRatioHasChanged && isComponentComplete())
        showSource();
}

void RowIcon::showSource() {
    picture_.show(source_, qRound(implicitWidth()));
}

void RowIcon::paint(QPainter& painter) {
    drawPicture(painter, picture_.image(), boundingRect());
}

} // namespace wardlock::window
