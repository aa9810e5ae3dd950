#include "window/KeptInput.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleHints>
#include <QTouchEvent>

#include <utility>

namespace wardlock::window {

namespace {

/// A user who waits for a page that hangs presses the same key again and again.
constexpr std::size_t mostKept = 8;

} // namespace

void KeptInput::watch(QQuickWindow& window) {
    window_ = &window;
    window.installEventFilter(this);
}

void KeptInput::callAtRest(const QJSValue& function) {
    if (keeps())
        add([function] { function.call(); });
    else
        function.call();
}

void KeptInput::deliver() {
    delivering_ = true;
    while (!kept_.empty() && !isMoving_()) {
        const auto input = std::move(kept_.front());
        kept_.erase(kept_.begin());
        input();
    }
    delivering_ = false;
}

bool KeptInput::eventFilter(QObject* window, QEvent* event) {
    // What comes before the kept input is delivered stays behind it.
    if (!keeps() || !keep(event))
        return QObject::eventFilter(window, event);
    event->accept();
    return true;
}

bool KeptInput::keep(QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        return keepMouse(*static_cast<QMouseEvent*>(event));
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        return keepTouch(*static_cast<QTouchEvent*>(event));
    case QEvent::KeyPress:
        return keepKey(*static_cast<QKeyEvent*>(event));
    default:
        return false;
    }
}

bool KeptInput::keepMouse(QSinglePointEvent& event) {
    const bool began =
        event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
    if (began && event.button() != Qt::LeftButton)
        return false;
    if (began)
        press(event.position());
    else if (!pressed_)
        return false;
    else if (event.type() == QEvent::MouseMove)
        move(event.position());
    else
        release();
    if (event.type() == QEvent::MouseButtonDblClick)
        isTap_ = false;
    return true;
}

bool KeptInput::keepTouch(QTouchEvent& event) {
    if (event.type() == QEvent::TouchBegin)
        press(event.points().constFirst().position());
    else if (!pressed_)
        return false;
    else if (event.type() == QEvent::TouchUpdate)
        move(event.points().constFirst().position());
    else if (event.type() == QEvent::TouchEnd)
        release();
    else
        pressed_ = false;
    return true;
}

bool KeptInput::keepKey(const QKeyEvent& event) {
    // A key that is held down means the page on which it went down.
    if (!event.isAutoRepeat())
        add([this, copy = std::shared_ptr<QKeyEvent>(event.clone())] {
            QCoreApplication::sendEvent(window_, copy.get());
        });
    return true;
}

void KeptInput::press(QPointF place) {
    pressed_ = true;
    isTap_ = true;
    pressedAt_ = place;
}

void KeptInput::move(QPointF place) {
    const double way = (place - pressedAt_).manhattanLength();
    isTap_ = isTap_ && way < QGuiApplication::styleHints()->startDragDistance();
}

void KeptInput::release() {
    pressed_ = false;
    if (isTap_)
        add([this, place = pressedAt_] { tap(place); });
}

void KeptInput::add(std::function<void()> input) {
    if (kept_.size() < mostKept)
        kept_.push_back(std::move(input));
    // The movement may have ended while the finger was down.
    if (!isMoving_())
        QMetaObject::invokeMethod(
            this, [this] { deliver(); }, Qt::QueuedConnection);
}

void KeptInput::tap(QPointF place) {
    const QPointF onScreen = window_->mapToGlobal(place);
    QMouseEvent down(QEvent::MouseButtonPress, place, place, onScreen, Qt::LeftButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(window_, &down);
    QMouseEvent up(QEvent::MouseButtonRelease, place, place, onScreen, Qt::LeftButton, Qt::NoButton,
                   Qt::NoModifier);
    QCoreApplication::sendEvent(window_, &up);
}

} // namespace wardlock::window
