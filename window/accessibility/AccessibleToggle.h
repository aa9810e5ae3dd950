#pragma once

#include "window/accessibility/AccessibleItem.h"
#include "window/items/Toggle.h"

namespace wardlock::window {

/// What assistive technology sees of a switch, and how it flips one.
class AccessibleToggle : public AccessibleItem, public QAccessibleActionInterface {
public:
    explicit AccessibleToggle(Toggle& toggle) : AccessibleItem(toggle), toggle_(toggle) {}

    QString text(QAccessible::Text kind) const override;
    QAccessible::Role role() const override { return QAccessible::CheckBox; }
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override { return {toggleAction(), pressAction(), setFocusAction()}; }
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    Toggle& toggle_;
};

} // namespace wardlock::window
