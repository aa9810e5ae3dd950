#pragma once

#include "window/accessibility/AccessibleItem.h"

namespace wardlock::window {

/// A text field whose text nobody is to be told: Qt's own answer hands it out.
class AccessibleSecret : public AccessibleItem {
public:
    using AccessibleItem::AccessibleItem;

    /// Null when the item is no text field or hides nothing. It is looked at again when that changes.
    static QAccessibleInterface* makeIfSecret(QQuickItem& item);

    QString text(QAccessible::Text kind) const override;
    QAccessible::Role role() const override { return QAccessible::EditableText; }
    QAccessible::State state() const override;
};

/// Has an object told of anew by whatever is right for it now.
class AccessibilityRenewal : public QObject {
    Q_OBJECT

public slots:
    void renewSender();
};

} // namespace wardlock::window
