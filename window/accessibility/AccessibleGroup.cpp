#include "window/accessibility/AccessibleGroup.h"

#include "window/items/Modal.h"

#include <QQuickWindow>

#include <algorithm>

namespace wardlock::window {

namespace {

bool isCoveredLayer(const QQuickItem& item) {
    const auto* layer = qobject_cast<const Layer*>(&item);
    return layer && layer->isCovered();
}

/// Finds the nearest items below that assistive technology can see.
void collect(const QQuickItem& item, QList<QQuickItem*>& found) {
    for (auto* child : item.childItems())
        if (!child->isVisible() || isCoveredLayer(*child))
            continue;
        else if (interfaceOf(child))
            found.append(child);
        else
            collect(*child, found);
}

} // namespace

bool AccessibleGroup::isCovered() const {
    return isCoveredLayer(item());
}

QList<QQuickItem*> AccessibleGroup::children() const {
    QList<QQuickItem*> found;
    if (isCovered())
        return found;
    collect(item(), found);
    if (role() == QAccessible::List)
        std::ranges::stable_sort(found, {},
                                 [](const QQuickItem* child) { return child->mapToScene({}).y(); });
    return found;
}

int AccessibleGroup::childCount() const {
    return static_cast<int>(children().size());
}

QAccessibleInterface* AccessibleGroup::child(int index) const {
    return QAccessible::queryAccessibleInterface(children().value(index));
}

int AccessibleGroup::indexOfChild(const QAccessibleInterface* child) const {
    const auto all = children();
    const auto place = std::ranges::find(all, child->object());
    return place == all.end() ? -1 : static_cast<int>(place - all.begin());
}

QAccessibleInterface* AccessibleGroup::childAt(int x, int y) const {
    const auto all = children();
    // The topmost item comes last.
    for (auto child = all.rbegin(); child != all.rend(); ++child) {
        auto* accessible = QAccessible::queryAccessibleInterface(*child);
        if (accessible && !accessible->state().invisible && accessible->rect().contains(x, y))
            return accessible;
    }
    return nullptr;
}

QAccessible::State AccessibleGroup::state() const {
    auto state = AccessibleItem::state();
    state.invisible |= isCovered();
    state.modal = qobject_cast<Modal*>(&item()) != nullptr;
    // Else an item inside has the keyboard focus.
    state.focused = state.modal && item().window() && item().window()->activeFocusItem() == &item();
    return state;
}

} // namespace wardlock::window
