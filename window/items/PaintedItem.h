#pragma once

#include <QPainter>
#include <QQuickItem>

namespace wardlock::window {

/// An item that paints itself, in points, and is shown from that picture until it is updated. A window full
/// of rows is made of them before its first frame: unlike Qt's own painted item it keeps one picture, not
/// two.
class PaintedItem : public QQuickItem {
public:
    enum class Ground { Opaque, Transparent };

    explicit PaintedItem(QQuickItem* parent, Ground ground = Ground::Transparent);

    /// Onto an opaque ground every pixel is painted. On the thread that renders, while the main thread waits.
    virtual void paint(QPainter& painter) = 0;

protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    QImage picture(QSize pixels, double scale);

    const Ground ground_;
};

} // namespace wardlock::window
