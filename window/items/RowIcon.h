#pragma once

#include "window/items/PaintedItem.h"
#include "window/pictures/AsyncImage.h"

namespace wardlock::window {

/// A row's picture, square; nothing where there is none.
class RowIcon : public PaintedItem {
    Q_OBJECT
    /// An address from PictureSource, empty for none.
    Q_PROPERTY(QString source READ source WRITE setSource NOTIFY sourceChanged)

public:
    explicit RowIcon(QQuickItem* parent = nullptr);

    const QString& source() const { return source_; }
    void setSource(const QString& source);
    void paint(QPainter& painter) override;

signals:
    void sourceChanged();

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    void showSource();
    void resize(int side);

    QString source_;
    AsyncImage picture_{*this, [this] { update(); }};
};

} // namespace wardlock::window
