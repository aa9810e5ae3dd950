#include "window/accessibility/AccessibleItem.h"

#include "window/accessibility/AccessibleGroup.h"
#include "window/accessibility/AccessibleSecret.h"
#include "window/accessibility/AccessibleToggle.h"
#include "window/items/Announcement.h"
#include "window/items/Modal.h"

#include <QQuickWindow>

namespace wardlock::window {

namespace {

/// Returns the item's Accessible attached object of QML; null where it has none.
const QObject* attached(const QQuickItem& item) {
    for (const auto* child : item.children())
        if (child->inherits("QQuickAccessibleAttached"))
            return child;
    return nullptr;
}

QAccessibleInterface* make(const QString&, QObject* object) {
    auto* item = qobject_cast<QQuickItem*>(object);
    if (!item)
        return nullptr;
    if (qobject_cast<Layer*>(item) || qobject_cast<Announcement*>(item) || item->inherits("QQuickListView"))
        return new AccessibleGroup(*item);
    if (auto* toggle = qobject_cast<Toggle*>(item))
        return new AccessibleToggle(*toggle);
    return AccessibleSecret::makeIfSecret(*item);
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
    if (!words || (kind != QAccessible::Name && kind != QAccessible::Description))
        return {};
    return words->property(kind == QAccessible::Name ? "name" : "description").toString();
}

QAccessible::Role AccessibleItem::role() const {
    const auto* words = attached(item_);
    return words ? static_cast<QAccessible::Role>(words->property("role").toInt()) : QAccessible::NoRole;
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
