#include "app/Toggle.h"

#include <QAccessible>
#include <QEasingCurve>
#include <QGuiApplication>
#include <QPainter>

namespace wardlock::app {

namespace {

constexpr QSizeF whole(51, 31);
constexpr double knob = 27;
constexpr double rim = 2;
constexpr double ring = 3;
constexpr int slideMilliseconds = 160;
constexpr double unavailableOpacity = 0.5;
const QColor knobEdge(0, 0, 0, 40);

QColor between(const QColor& from, const QColor& to, double part) {
    const auto mix = [part](int a, int b) { return qRound(a + (b - a) * part); };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

} // namespace

Toggle::Toggle(QQuickItem* parent) : QQuickPaintedItem(parent) {
    setImplicitSize(whole.width(), whole.height());
    setAcceptedMouseButtons(Qt::LeftButton);
    setActiveFocusOnTab(true);
}

void Toggle::setOn(bool on) {
    if (on == on_)
        return;
    on_ = on;
    if (isVisible() && window() && look() && !look_->reducedMotion())
        slide();
    else
        position_ = on;
    update();
    tellAccessibility();
    emit changed();
}

void Toggle::showOn(bool on) {
    if (animation_)
        animation_->stop();
    if (position_ == on && on_ == on)
        return;
    on_ = on;
    position_ = on;
    update();
    emit changed();
}

void Toggle::slide() {
    if (!animation_) {
        animation_ = std::make_unique<QVariantAnimation>();
        animation_->setDuration(slideMilliseconds);
        connect(animation_.get(), &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
            position_ = value.toDouble();
            update();
        });
    }
    animation_->stop();
    animation_->setStartValue(position_);
    animation_->setEndValue(on_ ? 1.0 : 0.0);
    animation_->start();
}

void Toggle::setAvailable(bool available) {
    if (available == available_)
        return;
    available_ = available;
    setEnabled(available);
    setOpacity(available ? 1 : unavailableOpacity);
    emit changed();
}

void Toggle::setLabel(const QString& label) {
    if (label == label_)
        return;
    label_ = label;
    emit changed();
}

void Toggle::ask() {
    emit asked(!on_);
}

const Look* Toggle::look() {
    if (!look_ && (look_ = Look::of(*this)))
        connect(look_, &Look::changed, this, [this] { update(); });
    return look_;
}

void Toggle::componentComplete() {
    QQuickPaintedItem::componentComplete();
    position_ = on_;
}

void Toggle::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickPaintedItem::itemChange(change, data);
    // Painting is no time to look for it.
    if (change == ItemSceneChange && data.window)
        look();
}

void Toggle::paint(QPainter* painter) {
    if (!look_)
        return;
    const QRectF all({}, whole);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(between(look_->off(), look_->on(), position_));
    painter->drawRoundedRect(all, whole.height() / 2, whole.height() / 2);

    const double way = whole.width() - knob - 2 * rim;
    const double part = QEasingCurve(QEasingCurve::InOutQuad).valueForProgress(position_);
    const bool mirrored = QGuiApplication::layoutDirection() == Qt::RightToLeft;
    const QRectF circle(rim + way * (mirrored ? 1 - part : part), rim, knob, knob);
    painter->setBrush(Qt::white);
    painter->drawEllipse(circle);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(knobEdge, 1));
    painter->drawEllipse(circle.adjusted(0.5, 0.5, -0.5, -0.5));
    if (!hasActiveFocus())
        return;
    painter->setPen(QPen(look_->focus(), ring));
    const QRectF line = all.adjusted(ring / 2, ring / 2, -ring / 2, -ring / 2);
    painter->drawRoundedRect(line, line.height() / 2, line.height() / 2);
}

void Toggle::mousePressEvent(QMouseEvent* event) {
    // The release comes here too, unless the list is dragged before.
    event->accept();
}

void Toggle::mouseReleaseEvent(QMouseEvent* event) {
    if (contains(event->position()))
        ask();
}

void Toggle::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter)
        ask();
    else
        event->ignore();
}

void Toggle::focusInEvent(QFocusEvent*) {
    update();
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(this, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

void Toggle::focusOutEvent(QFocusEvent*) {
    update();
}

void Toggle::tellAccessibility() const {
    if (!QAccessible::isActive())
        return;
    QAccessible::State checked;
    checked.checked = true;
    QAccessibleStateChangeEvent event(const_cast<Toggle*>(this), checked);
    QAccessible::updateAccessibility(&event);
}

} // namespace wardlock::app
