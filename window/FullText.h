#pragma once

#include "window/KeyboardUse.h"

#include <QPointF>
#include <QPointer>
#include <QQuickWindow>
#include <QRectF>
#include <QTimer>

namespace wardlock::window {

/// The whole of a text that the window elides, in QML `fullText`: of the one on which the mouse rests, or of
/// the row to which the keyboard has moved. Items are searched only then.
class FullText : public QObject {
    Q_OBJECT
    /// Empty for none.
    Q_PROPERTY(QString text READ text NOTIFY changed)
    /// Where the window shows the elided text.
    Q_PROPERTY(QRectF area READ area NOTIFY changed)

public:
    /// `keyboard` outlives this object.
    explicit FullText(const KeyboardUse& keyboard);
    /// From now on, for this window.
    void watch(QQuickWindow& window);

    const QString& text() const { return text_; }
    QRectF area() const { return area_; }

signals:
    void changed();

private:
    bool eventFilter(QObject* window, QEvent* event) override;
    void wait();
    void find();
    void show(const QList<QQuickItem*>& elided);
    void hide();

    const KeyboardUse& keyboard_;
    QPointer<QQuickWindow> window_;
    QTimer rest_;
    /// Whether the mouse was moved last, and not the keyboard's focus.
    bool followsMouse_ = false;
    QPointF mouse_;
    QString text_;
    QRectF area_;
};

} // namespace wardlock::window
