#pragma once

#include "window/accessibility/AccessibleItem.h"

namespace wardlock::window {

/// A group of what an item holds, from top to bottom as it is read: a list makes its rows in any order. A
/// layer that is covered holds nothing.
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
