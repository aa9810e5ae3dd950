#pragma once

#include "window/items/PaintedItem.h"

#include <QImage>
#include <QPointer>
#include <QQuickItemGrabResult>
#include <QSharedPointer>

namespace wardlock::window {

/// A dark blur of another item, as it was when this one appeared or changed its size. A small picture of it
/// is blurred on the processor, which gives the same result and speed with every graphics backend.
class BlurredBackdrop : public PaintedItem {
    Q_OBJECT
    Q_PROPERTY(QQuickItem* source MEMBER source_ NOTIFY sourceChanged)

public:
    explicit BlurredBackdrop(QQuickItem* parent = nullptr) : PaintedItem(parent) {}

    void paint(QPainter& painter) override;

signals:
    void sourceChanged();

private:
    void componentComplete() override;
    void geometryChange(const QRectF& now, const QRectF& before) override;
    void grab();

    QPointer<QQuickItem> source_;
    QSharedPointer<QQuickItemGrabResult> grabbing_;
    QImage blurred_;
};

/// Returns the picture after three box filters of the radius, in pixels, one after another. That comes close
/// to a Gaussian blur.
QImage blurred(const QImage& picture, int radius);

} // namespace wardlock::window
