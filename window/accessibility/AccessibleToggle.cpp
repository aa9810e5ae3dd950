#include "window/accessibility/AccessibleToggle.h"

#include "window/items/PlaceInList.h"

namespace wardlock::window {

QString AccessibleToggle::text(QAccessible::Text kind) const {
    if (kind == QAccessible::Name)
        return toggle_.label();
    if (kind != QAccessible::Description)
        return {};
    QStringList words;
    if (!toggle_.isAvailable())
        words.append(QCoreApplication::translate("Toggle", "Not available"));
    if (const QString place = placeInList(toggle_.placeInList().x(), toggle_.placeInList().y());
        !place.isEmpty())
        words.append(place);
    return words.join(QStringLiteral(", "));
}

QAccessible::State AccessibleToggle::state() const {
    auto state = AccessibleItem::state();
    state.checkable = true;
    state.checked = toggle_.isOn();
    state.focusable = toggle_.isEnabled();
    return state;
}

void* AccessibleToggle::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : AccessibleItem::interface_cast(type);
}

void AccessibleToggle::doAction(const QString& name) {
    if (name == setFocusAction() && toggle_.isEnabled())
        toggle_.forceActiveFocus();
    // A page that moves is not enabled either, but keeps what is asked of it.
    else if (toggle_.isAvailable() && (name == toggleAction() || name == pressAction()))
        toggle_.ask();
}

} // namespace wardlock::window
