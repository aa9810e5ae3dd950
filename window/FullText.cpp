#include "window/FullText.h"

#include "window/items/Layer.h"
#include "window/items/TableCell.h"

#include <QMouseEvent>
#include <QStringList>

#include <chrono>

namespace wardlock::window {

namespace {

/// After this time, the mouse or the keyboard rests.
constexpr std::chrono::milliseconds restTime{500};

/// Where a word may be broken, without a sign.
constexpr QChar lineEnd(0x200b);

/// Returns the whole text of an item that shows a part of it; empty for others.
QString wholeText(const QQuickItem& item) {
    if (const auto* cell = qobject_cast<const TableCell*>(&item))
        return cell->isElided() ? cell->text() : QString();
    if (!item.inherits("QQuickText"))
        return {};
    const QString text = item.property("text").toString();
    // An item that fits its text into lines itself keeps the whole apart.
    const QVariant fitted = item.property("wholeText");
    const QString whole = fitted.isValid() ? fitted.toString() : text;
    const bool isCut = QString(text).remove(lineEnd) != QString(whole).remove(lineEnd);
    return isCut || item.property("truncated").toBool() ? whole : QString();
}

bool canBeSeen(const QQuickItem& item) {
    const auto* layer = qobject_cast<const Layer*>(&item);
    return item.isVisible() && item.opacity() > 0 && !(layer && layer->isCovered());
}

/// Returns the topmost item with an elided text at the point of the window; null for none.
QQuickItem* elidedAt(QQuickItem& item, QPointF point) {
    const bool isInside = item.contains(item.mapFromScene(point));
    if (!canBeSeen(item) || (item.clip() && !isInside))
        return nullptr;
    const auto children = item.childItems();
    for (auto child = children.rbegin(); child != children.rend(); ++child)
        if (auto* found = elidedAt(**child, point))
            return found;
    return isInside && !wholeText(item).isEmpty() ? &item : nullptr;
}

void collectElided(QQuickItem& item, QList<QQuickItem*>& found) {
    if (!canBeSeen(item))
        return;
    if (!wholeText(item).isEmpty())
        found.append(&item);
    for (auto* child : item.childItems())
        collectElided(*child, found);
}

/// Returns the row that gives its keyboard focus to the item; the item itself where there is none.
QQuickItem& rowOf(QQuickItem& item) {
    for (auto* outer = &item; outer; outer = outer->parentItem())
        if (outer->property("focusTarget").value<QQuickItem*>() == &item)
            return *outer;
    return item;
}

} // namespace

FullText::FullText(const KeyboardUse& keyboard) : keyboard_(keyboard) {
    rest_.setSingleShot(true);
    connect(&rest_, &QTimer::timeout, this, &FullText::find);
}

void FullText::watch(QQuickWindow& window) {
    window_ = &window;
    window.installEventFilter(this);
    connect(&window, &QQuickWindow::activeFocusItemChanged, this, [this] {
        followsMouse_ = false;
        wait();
    });
}

bool FullText::eventFilter(QObject* window, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseMove:
        followsMouse_ = true;
        mouse_ = static_cast<QMouseEvent*>(event)->position();
        if (text_.isEmpty() || !area_.contains(mouse_))
            wait();
        break;
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::Leave:
    case QEvent::Resize:
        hide();
        break;
    default:
        break;
    }
    return QObject::eventFilter(window, event);
}

void FullText::wait() {
    hide();
    rest_.start(restTime);
}

void FullText::find() {
    QList<QQuickItem*> found;
    auto* focused = window_ ? window_->activeFocusItem() : nullptr;
    auto* pointed = window_ && followsMouse_ ? elidedAt(*window_->contentItem(), mouse_) : nullptr;
    if (pointed)
        found.append(pointed);
    else if (!followsMouse_ && focused && keyboard_.isInUse())
        collectElided(rowOf(*focused), found);
    show(found);
}

void FullText::show(const QList<QQuickItem*>& elided) {
    QStringList texts;
    QRectF area;
    for (const auto* item : elided) {
        texts.append(wholeText(*item));
        area |= item->mapRectToScene(item->boundingRect());
    }
    text_ = texts.join(QLatin1Char('\n'));
    area_ = area;
    emit changed();
}

void FullText::hide() {
    rest_.stop();
    if (!text_.isEmpty())
        show({});
}

} // namespace wardlock::window
