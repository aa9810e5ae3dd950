#include "window/items/Announcement.h"

#include <QAccessible>

namespace wardlock::window {

void Announcement::setText(const QString& text) {
    if (text == text_)
        return;
    text_ = text;
    // What is inside follows first.
    emit textChanged();
    // Where the item is not visible yet, Qt sends the event once it is.
    if (text_.isEmpty() || !isVisible() || !QAccessible::isActive())
        return;
    QAccessibleEvent event(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&event);
}

} // namespace wardlock::window
