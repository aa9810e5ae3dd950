#include "window/items/TableCell.h"

#include <QGuiApplication>

#include <algorithm>
#include <utility>

namespace wardlock::window {

namespace {

constexpr double besideSwitch = 12;
constexpr double aroundLines = 14;

} // namespace

TableCell::TableCell(QQuickItem* parent) : PaintedItem(parent, Ground::Opaque) {}

void TableCell::componentComplete() {
    PaintedItem::componentComplete();
    look_ = Theme::of(*this);
    connect(look_, &Theme::changed, this, &TableCell::layOut);
    layOut();
    icon_.show(entry_.icon, look_->icon);
}

void TableCell::setEntry(const TableEntry& entry) {
    if (entry == entry_)
        return;
    const TableEntry before = std::exchange(entry_, entry);
    if (entry_.key != before.key || before.row != entry_.row || objectName().isEmpty())
        setObjectName(QStringLiteral("cell:") + entry_.key);
    showSwitch(entry_.key == before.key);
    if (look_ && (entry_.height != before.height || entry_.hasSwitch != before.hasSwitch ||
                  (entry_.title != before.title && look_->textScale() > 1)))
        layOut();
    if (look_ && entry_.icon != before.icon)
        icon_.show(entry_.icon, look_->icon);
    auto onlySwitched = before;
    onlySwitched.on = entry_.on;
    if (onlySwitched != entry_)
        update();
    emit entryChanged();
}

RowText TableCell::laidOut() const {
    const double taken = entry_.hasSwitch ? toggle_->width() + look_->inset + besideSwitch : look_->inset;
    return {entry_.title, *look_, width() - taken - look_->besideIcon()};
}

void TableCell::layOut() {
    double height = std::max<double>(entry_.height, qRound(entry_.height * look_->textScale()));
    // The text is laid out in vain where one line is all it may have.
    if (look_->textScale() > 1 && width() > 0)
        height = std::max(height, laidOut().height() + aroundLines);
    setHeight(height);
    placeSwitch();
    update();
}

void TableCell::showSwitch(bool sameRow) {
    if (toggle_)
        toggle_->setVisible(entry_.hasSwitch);
    if (!entry_.hasSwitch)
        return;
    if (!toggle_) {
        toggle_ = new Toggle(this);
        toggle_->leavePaintingToParent();
        toggle_->setSize({toggle_->implicitWidth(), toggle_->implicitHeight()});
        connect(toggle_, &Toggle::asked, this, [this] { emit flipped(entry_.row); });
        placeSwitch();
    }
    toggle_->setObjectName(QStringLiteral("switch:") + entry_.key);
    toggle_->setLabel(entry_.title.isEmpty() ? entry_.key : entry_.title);
    if (sameRow)
        toggle_->setOn(entry_.on);
    else
        toggle_->showOn(entry_.on);
}

void TableCell::placeSwitch() {
    if (!toggle_ || !look_)
        return;
    const bool mirrored = QGuiApplication::layoutDirection() == Qt::RightToLeft;
    toggle_->setPosition({mirrored ? look_->inset : width() - toggle_->width() - look_->inset,
                          std::round((height() - toggle_->height()) / 2)});
}

void TableCell::geometryChange(const QRectF& now, const QRectF& before) {
    PaintedItem::geometryChange(now, before);
    if (now.size() == before.size())
        return;
    if (look_ && now.width() != before.width())
        layOut();
    else
        placeSwitch();
}

void TableCell::paint(QPainter& painter) {
    if (!look_)
        return;
    const RowPainter row(painter, *look_, size());
    row.card(entry_.place, look_->card());
    if (!entry_.place.last)
        row.separator(look_->besideIcon());
    row.icon(icon_.image());
    row.text(laidOut(), look_->besideIcon(), look_->label());
    if (!entry_.hasSwitch)
        return;
    painter.translate(toggle_->position());
    toggle_->paint(painter);
}

} // namespace wardlock::window
