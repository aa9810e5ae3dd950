#pragma once

#include "window/accessibility/AccessibleItem.h"

namespace wardlock::window {

/// A group of the items in an item, in reading order from top to bottom: a list creates its rows in any
/// order. A covered layer is an empty group.
class AccessibleGroup : public AccessibleItem {
public:
    AccessibleGroup(QQuickItem& item, QAccessible::Role role) : AccessibleItem(item), role_(role) {}

    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessible::Role role() const override { return role_; }
    QAccessible::State state() const override;

private:
    QList<QQuickItem*> children() const;
    bool isCovered() const;

    const QAccessible::Role role_;
};

} // namespace wardlock::window
