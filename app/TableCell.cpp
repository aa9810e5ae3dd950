#include "app/TableCell.h"

#include <QGuiApplication>

#include <algorithm>
#include <utility>

namespace wardlock::app {

namespace {

constexpr double besideSwitch = 12;

} // namespace

TableCell::TableCell(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setOpaquePainting(true);
}

void TableCell::componentComplete() {
    QQuickPaintedItem::componentComplete();
    look_ = Look::of(*this);
    connect(look_, &Look::changed, this, &TableCell::followLook);
    followLook();
    icon_.show(entry_.icon, look_->icon);
}

void TableCell::setEntry(const TableEntry& entry) {
    if (entry == entry_)
        return;
    const TableEntry before = std::exchange(entry_, entry);
    if (entry_.key != before.key || before.row != entry_.row || objectName().isEmpty())
        setObjectName(QStringLiteral("cell:") + entry_.key);
    showSwitch(entry_.key == before.key);
    if (look_ && entry_.height != before.height)
        followLook();
    if (look_ && entry_.icon != before.icon)
        icon_.show(entry_.icon, look_->icon);
    auto onlySwitched = before;
    onlySwitched.on = entry_.on;
    if (onlySwitched != entry_)
        update();
    emit entryChanged();
}

void TableCell::followLook() {
    setHeight(std::max<double>(entry_.height, qRound(entry_.height * look_->textScale())));
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
    QQuickPaintedItem::geometryChange(now, before);
    if (now.size() != before.size())
        placeSwitch();
}

void TableCell::paint(QPainter* painter) {
    if (!look_)
        return;
    const RowPainter row(*painter, *look_, size());
    row.card(entry_.place, look_->card());
    if (!entry_.place.last)
        row.separator(look_->besideIcon());
    row.icon(icon_.image());
    const double taken = entry_.hasSwitch ? toggle_->width() + look_->inset + besideSwitch : look_->inset;
    row.text(entry_.title, look_->besideIcon(), width() - taken, look_->label());
}

} // namespace wardlock::app
