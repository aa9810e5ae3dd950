#pragma once

#include <QAccessibleObject>
#include <QQuickItem>

namespace wardlock::window {

/// What assistive technology sees of an item where Qt's own interface is not enough.
class AccessibleItem : public QAccessibleObject {
public:
    explicit AccessibleItem(QQuickItem& item) : QAccessibleObject(&item), item_(item) {}

    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    /// Name, description and role are those that QML sets.
    QString text(QAccessible::Text kind) const override;
    QAccessible::Role role() const override;
    QRect rect() const override;
    QAccessible::State state() const override;

protected:
    QQuickItem& item() const { return item_; }

private:
    QQuickItem& item_;
};

/// Returns what assistive technology sees of an item; null where it sees nothing, or the item is to be
/// ignored.
QAccessibleInterface* interfaceOf(QQuickItem* item);

/// Makes the classes of this folder represent layers, lists and secret fields from now on. Repeated calls in
/// a process do no harm.
void installAccessibility();

} // namespace wardlock::window
