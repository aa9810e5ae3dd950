#pragma once

#include <QPainter>
#include <QQuickItem>

namespace wardlock::window {

/// An item that paints itself, in points, and is shown from that picture until it is updated. A window full
/// of rows is created before its first frame: unlike Qt's own painted item it keeps one picture, not two.
class PaintedItem : public QQuickItem {
public:
    enum class Ground { Opaque, Transparent };

    explicit PaintedItem(QQuickItem* parent, Ground ground = Ground::Transparent);

    /// Paints every pixel, on an opaque ground. Called on the thread that renders, while the main thread
    /// waits.
    virtual void paint(QPainter& painter) = 0;

protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    QImage picture(QSize pixels, double scale);

    const Ground ground_;
};

} // namespace wardlock::window
