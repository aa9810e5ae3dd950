#pragma once

#include <QJSValue>
#include <QObject>
#include <QPointF>
#include <QQuickWindow>

#include <functional>
#include <memory>
#include <vector>

class QKeyEvent;
class QSinglePointEvent;
class QTouchEvent;

namespace wardlock::window {

/// Keeps the taps and keys of a user who is faster than the pages: while a page moves they wait, and
/// deliver() passes them on. Dragging is not kept, nor is the second half of a double click: it meant the
/// page before.
class KeptInput : public QObject {
    Q_OBJECT

public:
    /// `isMoving` returns whether a page enters or leaves now.
    explicit KeptInput(std::function<bool()> isMoving) : isMoving_(std::move(isMoving)) {}
    /// From now on keeps the input to the window, which outlives this object.
    void watch(QQuickWindow& window);

    /// Calls the function when no page moves: what a shortcut does, which is no key to the window.
    Q_INVOKABLE void callAtRest(const QJSValue& function);

    /// Passes on what was kept, up to the next page that moves. To be called when a movement has ended.
    void deliver();

private:
    bool keeps() const { return !delivering_ && (pressed_ || !kept_.empty() || isMoving_()); }
    bool eventFilter(QObject* window, QEvent* event) override;
    bool keep(QEvent* event);
    bool keepMouse(QSinglePointEvent& event);
    bool keepTouch(QTouchEvent& event);
    bool keepKey(const QKeyEvent& event);
    void press(QPointF place);
    void move(QPointF place);
    void release();
    void add(std::function<void()> input);
    void tap(QPointF place);

    QQuickWindow* window_ = nullptr;
    std::function<bool()> isMoving_;
    std::vector<std::function<void()>> kept_;
    bool delivering_ = false;
    /// Whether what is held down now is kept from the window, and where it went down.
    bool pressed_ = false;
    bool isTap_ = false;
    QPointF pressedAt_;
};

} // namespace wardlock::window
