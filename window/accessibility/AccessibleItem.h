#pragma once

#include <QAccessibleObject>
#include <QQuickItem>

namespace wardlock::window {

/// What assistive technology is told of an item where Qt's own answers do not do.
class AccessibleItem : public QAccessibleObject {
public:
    explicit AccessibleItem(QQuickItem& item) : QAccessibleObject(&item), item_(item) {}

    QWindow* window() const override;
    QAccessibleInterface* parent() const override;
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    QRect rect() const override;
    QAccessible::State state() const override;

protected:
    QQuickItem& item() const { return item_; }

private:
    QQuickItem& item_;
};

/// What assistive technology is told of an item; null where it is told nothing, or the item is to be ignored.
QAccessibleInterface* toldOf(QQuickItem* item);

/// From now on layers, lists and secret fields are told of by the classes of this folder. More than once in a
/// process does no harm.
void installAccessibility();

} // namespace wardlock::window
