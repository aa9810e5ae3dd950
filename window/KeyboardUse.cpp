#include "window/KeyboardUse.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace wardlock::window {

namespace {

constexpr std::array movingKeys{Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Up,     Qt::Key_Down,
                                Qt::Key_Home,   Qt::Key_End,     Qt::Key_PageUp, Qt::Key_PageDown,
                                Qt::Key_Return, Qt::Key_Enter,   Qt::Key_Escape, Qt::Key_Back};

} // namespace

bool KeyboardUse::eventFilter(QObject* window, QEvent* event) {
    if (event->type() == QEvent::KeyPress)
        set(inUse_ || std::ranges::count(movingKeys, static_cast<QKeyEvent*>(event)->key()) > 0);
    else if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::TouchBegin)
        set(false);
    if (!mouseMoved_ && event->type() == QEvent::MouseMove) {
        mouseMoved_ = true;
        emit mouseMovedForTheFirstTime();
    }
    return QObject::eventFilter(window, event);
}

void KeyboardUse::set(bool inUse) {
    if (inUse == inUse_)
        return;
    inUse_ = inUse;
    emit changed();
}

} // namespace wardlock::window
