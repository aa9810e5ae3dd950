#include "window/accessibility/AccessibleItem.h"

#include "window/accessibility/AccessibleGroup.h"
#include "window/accessibility/AccessibleSecret.h"
#include "window/accessibility/AccessibleToggle.h"
#include "window/items/Layer.h"

#include <QQuickWindow>

namespace wardlock::window {

namespace {

QAccessibleInterface* make(const QString&, QObject* object) {
    auto* item = qobject_cast<QQuickItem*>(object);
    if (!item)
        return nullptr;
    if (qobject_cast<Layer*>(item))
        return new AccessibleGroup(*item, QAccessible::Grouping);
    if (item->inherits("QQuickListView"))
        return new AccessibleGroup(*item, QAccessible::List);
    if (auto* toggle = qobject_cast<Toggle*>(item))
        return new AccessibleToggle(*toggle);
    return AccessibleSecret::makeIfSecret(*item);
}

/// Returns the item's Accessible attached object of QML; null where it has none.
const QObject* attached(const QQuickItem& item) {
    for (const auto* child : item.children())
        if (child->inherits("QQuickAccessibleAttached"))
            return child;
    return nullptr;
}

} // namespace

QAccessibleInterface* interfaceOf(QQuickItem* item) {
    const auto* words = attached(*item);
    if (words && words->property("ignored").toBool())
        return nullptr;
    return QAccessible::queryAccessibleInterface(item);
}

void installAccessibility() {
    QAccessible::installFactory(make);
}

QWindow* AccessibleItem::window() const {
    return item_.window();
}

QAccessibleInterface* AccessibleItem::parent() const {
    for (auto* above = item_.parentItem(); above; above = above->parentItem())
        if (auto* accessible = interfaceOf(above))
            return accessible;
    return window() ? QAccessible::queryAccessibleInterface(window()) : nullptr;
}

QString AccessibleItem::text(QAccessible::Text kind) const {
    const auto* words = attached(item_);
    return words && kind == QAccessible::Name ? words->property("name").toString() : QString();
}

QRect AccessibleItem::rect() const {
    if (!window())
        return {};
    const QRectF inWindow = item_.mapRectToScene(item_.boundingRect());
    return {window()->mapToGlobal(inWindow.topLeft().toPoint()), inWindow.size().toSize()};
}

QAccessible::State AccessibleItem::state() const {
    QAccessible::State state;
    state.invisible = !window() || !window()->isVisible() || !item_.isVisible();
    state.disabled = !item_.isEnabled();
    state.focused = item_.hasActiveFocus();
    return state;
}

} // namespace wardlock::window
