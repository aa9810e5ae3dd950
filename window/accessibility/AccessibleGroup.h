#pragma once

#include "window/accessibility/AccessibleItem.h"

namespace wardlock::window {

/// A group of the items in an item that can be seen, in reading order from top to bottom: a list creates its
/// rows in any order. A covered layer is an empty group.
class AccessibleGroup : public AccessibleItem {
public:
    using AccessibleItem::AccessibleItem;

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessible::State state() const override;

private:
    QList<QQuickItem*> children() const;
    bool isCovered() const;
};

} // namespace wardlock::window
