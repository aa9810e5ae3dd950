#pragma once

#include "window/accessibility/AccessibleItem.h"

namespace wardlock::window {

/// A text field whose text stays secret: Qt's own interface returns it.
class AccessibleSecret : public AccessibleItem {
public:
    using AccessibleItem::AccessibleItem;

    /// Returns null when the item is not a text field or hides nothing. The item is examined again when that
    /// changes.
    static QAccessibleInterface* makeIfSecret(QQuickItem& item);

    QString text(QAccessible::Text kind) const override;
    QAccessible::Role role() const override { return QAccessible::EditableText; }
    QAccessible::State state() const override;
};

/// Replaces an object's accessible interface by the one that fits its present state.
class AccessibilityRenewal : public QObject {
    Q_OBJECT

public slots:
    void renewSender();
};

} // namespace wardlock::window
