#pragma once

#include "window/items/PaintedItem.h"

#include <QImage>
#include <QPointer>
#include <QQuickItemGrabResult>
#include <QSharedPointer>

namespace wardlock::window {

/// A dark blur of another item, as that looks when this one appears or changes its size. A small picture of
/// it is blurred by hand, which looks the same and is as quick with every graphics backend.
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

/// The picture with three box filters of the radius, in pixels, one after another, which comes close to a
/// Gaussian blur.
QImage blurred(const QImage& picture, int radius);

} // namespace wardlock::window
