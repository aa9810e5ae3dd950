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
    theme_ = Theme::of(*this);
    connect(theme_, &Theme::changed, this, &TableCell::layOut);
    showIcon();
    layOut();
}

void TableCell::itemChange(ItemChange change, const ItemChangeData& data) {
    PaintedItem::itemChange(change, data);
    if (change == ItemDevicePixelRatioHasChanged && theme_)
        showIcon();
}

void TableCell::setEntry(const TableEntry& entry) {
    if (entry == entry_)
        return;
    const TableEntry before = std::exchange(entry_, entry);
    if (entry_.key != before.key || before.row != entry_.row || objectName().isEmpty())
        setObjectName(QStringLiteral("cell:") + entry_.key);
    showSwitch(entry_.key == before.key);
    if (theme_ && (entry_.height != before.height || entry_.hasSwitch != before.hasSwitch ||
                   (entry_.title != before.title && theme_->wrapsRows())))
        layOut();
    if (theme_ && entry_.icon != before.icon)
        showIcon();
    auto onlySwitched = before;
    onlySwitched.on = entry_.on;
    if (onlySwitched != entry_)
        update();
    emit entryChanged();
}

void TableCell::showIcon() {
    iconSide_ = theme_->icon();
    icon_.show(entry_.icon, iconSide_);
}

RowText TableCell::laidOut() const {
    const double taken =
        entry_.hasSwitch ? toggle_->width() + theme_->inset() + besideSwitch : theme_->inset();
    return {entry_.title, *theme_, width() - taken - theme_->besideIcon(),
            entry_.nameless ? Qt::ElideLeft : Qt::ElideRight};
}

void TableCell::layOut() {
    if (iconSide_ != theme_->icon())
        showIcon();
    double height = std::max<double>(entry_.height, qRound(entry_.height * theme_->textScale()));
    // Where one line is the limit, the layout would change nothing.
    if (theme_->wrapsRows() && width() > 0)
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
        connect(toggle_, &QQuickItem::implicitWidthChanged, this, [this] {
            if (theme_)
                layOut();
        });
        connect(toggle_, &Toggle::asked, this, [this] { emit flipped(entry_.row); });
        placeSwitch();
    }
    toggle_->setObjectName(QStringLiteral("switch:") + entry_.key);
    toggle_->setLabel(entry_.title);
    toggle_->setPlaceInList({entry_.row + 1, entry_.count});
    if (sameRow)
        toggle_->setOn(entry_.on);
    else
        toggle_->showOn(entry_.on);
}

void TableCell::placeSwitch() {
    if (!toggle_ || !theme_)
        return;
    const bool mirrored = QGuiApplication::layoutDirection() == Qt::RightToLeft;
    toggle_->setPosition({mirrored ? theme_->inset() : width() - toggle_->width() - theme_->inset(),
                          std::round((height() - toggle_->height()) / 2)});
}

void TableCell::geometryChange(const QRectF& now, const QRectF& before) {
    PaintedItem::geometryChange(now, before);
    if (now.size() == before.size())
        return;
    if (theme_ && now.width() != before.width())
        layOut();
    else
        placeSwitch();
}

void TableCell::paint(QPainter& painter) {
    if (!theme_)
        return;
    const RowPainter row(painter, *theme_, size());
    row.card(entry_.place, theme_->card());
    if (!entry_.place.last)
        row.separator(theme_->besideIcon());
    row.icon(icon_.image());
    row.text(laidOut(), theme_->besideIcon(), entry_.nameless ? theme_->value() : theme_->label());
    if (!entry_.hasSwitch)
        return;
    painter.translate(toggle_->position());
    toggle_->paint(painter);
}

} // namespace wardlock::window
