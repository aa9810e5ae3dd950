#include "window/accessibility/AccessibleGroup.h"

#include "window/items/Layer.h"

#include <algorithm>

namespace wardlock::window {

namespace {

/// Finds the nearest items below that assistive technology can see.
void collect(const QQuickItem& item, QList<QQuickItem*>& found) {
    for (auto* child : item.childItems())
        if (interfaceOf(child))
            found.append(child);
        else
            collect(*child, found);
}

} // namespace

bool AccessibleGroup::isCovered() const {
    const auto* layer = qobject_cast<Layer*>(&item());
    return layer && layer->isCovered();
}

QList<QQuickItem*> AccessibleGroup::children() const {
    QList<QQuickItem*> found;
    if (isCovered())
        return found;
    collect(item(), found);
    if (role_ == QAccessible::List)
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
    // An item inside has the keyboard focus.
    state.focused = false;
    return state;
}

} // namespace wardlock::window
