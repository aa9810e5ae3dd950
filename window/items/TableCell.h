#pragma once

#include "window/items/PaintedItem.h"
#include "window/items/RowText.h"
#include "window/items/TableEntry.h"
#include "window/items/Toggle.h"
#include "window/pictures/AsyncImage.h"

#include <QPointer>

namespace wardlock::window {

/// One row of a table page: its part of the card with icon, title and switch. It is painted as one picture,
/// since a list creates a window full of them before its first frame. It grows with the text.
class TableCell : public PaintedItem {
    Q_OBJECT
    Q_PROPERTY(wardlock::window::TableEntry entry READ entry WRITE setEntry NOTIFY entryChanged REQUIRED)
    Q_PROPERTY(QString text READ text NOTIFY entryChanged)
    /// The item that takes the keyboard focus of this row; null for none.
    Q_PROPERTY(QQuickItem* focusTarget READ focusTarget NOTIFY entryChanged)

public:
    explicit TableCell(QQuickItem* parent = nullptr);

    const TableEntry& entry() const { return entry_; }
    void setEntry(const TableEntry& entry);
    const QString& text() const { return entry_.title; }
    /// Returns whether the row shows a part of the text only.
    bool isElided() const { return theme_ && laidOut().isElided(); }
    QQuickItem* focusTarget() const { return entry_.hasSwitch ? toggle_ : nullptr; }

    void paint(QPainter& painter) override;

signals:
    void entryChanged();
    /// The switch of row `row` was tapped.
    void flipped(int row);

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;

private:
    RowText laidOut() const;
    void layOut();
    void showSwitch(bool sameRow);
    void placeSwitch();
    void showIcon();

    TableEntry entry_;
    /// The side of the icon, in points.
    int iconSide_ = 0;
    QPointer<Theme> theme_;
    Toggle* toggle_ = nullptr;
    AsyncImage icon_{*this, [this] { update(); }};
};

} // namespace wardlock::window
