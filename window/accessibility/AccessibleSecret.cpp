#include "window/accessibility/AccessibleSecret.h"

#include <QMetaProperty>

namespace wardlock::window {

namespace {

constexpr int echoAsTyped = 0;

void renewWhenEchoChanges(QQuickItem& field, const QMetaProperty& echo) {
    static AccessibilityRenewal renewal;
    static const QMetaMethod renew =
        renewal.metaObject()->method(renewal.metaObject()->indexOfSlot("renewSender()"));
    QObject::connect(&field, echo.notifySignal(), &renewal, renew, Qt::UniqueConnection);
}

} // namespace

void AccessibilityRenewal::renewSender() {
    if (auto* accessible = QAccessible::queryAccessibleInterface(sender()))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(accessible));
}

QAccessibleInterface* AccessibleSecret::makeIfSecret(QQuickItem& item) {
    if (!item.inherits("QQuickTextInput"))
        return nullptr;
    const auto* meta = item.metaObject();
    const QMetaProperty echo = meta->property(meta->indexOfProperty("echoMode"));
    renewWhenEchoChanges(item, echo);
    return echo.read(&item).toInt() == echoAsTyped ? nullptr : new AccessibleSecret(item);
}

QString AccessibleSecret::text(QAccessible::Text kind) const {
    if (kind == QAccessible::Value)
        return item().property("displayText").toString();
    // Qt does not return the name of a password field that Accessible sets.
    if (kind == QAccessible::Name)
        return item().property("spokenName").toString();
    return AccessibleItem::text(kind);
}

QAccessible::State AccessibleSecret::state() const {
    auto state = AccessibleItem::state();
    state.passwordEdit = true;
    state.editable = item().isEnabled();
    state.focusable = item().isEnabled();
    return state;
}

} // namespace wardlock::window
