#include "window/items/Layer.h"

#include <QAccessible>

namespace wardlock::window {

Layer::Layer(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemIsFocusScope);
}

void Layer::setCovered(bool covered) {
    if (covered == covered_)
        return;
    covered_ = covered;
    setEnabled(!covered);
    QAccessibleEvent event(this, covered ? QAccessible::ObjectHide : QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&event);
    emit coveredChanged();
}

} // namespace wardlock::window
