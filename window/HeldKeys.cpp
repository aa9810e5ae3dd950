#include "window/HeldKeys.h"

#include <QKeyEvent>
#include <QQuickWindow>

#include <algorithm>
#include <array>

namespace wardlock::window {

namespace {

constexpr std::array focusKeys{Qt::Key_Tab,      Qt::Key_Backtab, Qt::Key_Up,  Qt::Key_Down,
                               Qt::Key_Left,     Qt::Key_Home,    Qt::Key_End, Qt::Key_PageUp,
                               Qt::Key_PageDown, Qt::Key_Right};

} // namespace

bool HeldKeys::eventFilter(QObject* window, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(window, event);
    const auto& press = static_cast<const QKeyEvent&>(*event);
    auto* focused = static_cast<QQuickWindow*>(window)->activeFocusItem();
    if (!press.isAutoRepeat())
        pressedOn_ = focused;
    else if (focused != pressedOn_ && std::ranges::count(focusKeys, press.key()) == 0)
        return true;
    return QObject::eventFilter(window, event);
}

} // namespace wardlock::window
