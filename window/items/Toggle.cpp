#include "window/items/Toggle.h"

#include "window/items/SwitchStyle.h"

#include <QAccessible>
#include <QGuiApplication>

namespace wardlock::window {

namespace {

constexpr int slideMilliseconds = 160;
constexpr double unavailableOpacity = 0.5;

QColor between(const QColor& from, const QColor& to, double part) {
    const auto mix = [part](int a, int b) { return qRound(a + (b - a) * part); };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

} // namespace

Toggle::Toggle(QQuickItem* parent) : PaintedItem(parent) {
    setImplicitSize(SwitchStyle::usualSize.width(), SwitchStyle::usualSize.height());
    setAcceptedMouseButtons(Qt::LeftButton);
}

void Toggle::setOn(bool on) {
    if (on == on_)
        return;
    on_ = on;
    if (isVisible() && window() && theme() && !theme_->reducedMotion())
        slide();
    else
        position_ = on;
    repaint();
    notifyAccessibility();
    emit changed();
}

void Toggle::showOn(bool on) {
    if (animation_)
        animation_->stop();
    if (position_ == on && on_ == on)
        return;
    on_ = on;
    position_ = on;
    repaint();
    emit changed();
}

void Toggle::slide() {
    if (!animation_) {
        animation_ = std::make_unique<QVariantAnimation>();
        animation_->setDuration(slideMilliseconds);
        connect(animation_.get(), &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
            position_ = value.toDouble();
            repaint();
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

const Theme* Toggle::theme() {
    if (!theme_ && (theme_ = Theme::of(*this))) {
        connect(theme_, &Theme::changed, this, &Toggle::followTheme);
        followTheme();
    }
    return theme_;
}

void Toggle::followTheme() {
    const QSizeF size = SwitchStyle::sizeAt(theme_->signScale());
    setImplicitSize(size.width(), size.height());
    repaint();
}

void Toggle::componentComplete() {
    PaintedItem::componentComplete();
    position_ = on_;
}

void Toggle::itemChange(ItemChange change, const ItemChangeData& data) {
    PaintedItem::itemChange(change, data);
    // The theme is looked up here, not while painting.
    if (change == ItemSceneChange && data.window)
        theme();
}

void Toggle::leavePaintingToParent() {
    setFlag(ItemHasContents, false);
    theme();
}

void Toggle::repaint() {
    if (flags() & ItemHasContents)
        update();
    else if (parentItem())
        parentItem()->update();
}

void Toggle::paint(QPainter& painter) {
    if (!theme_)
        return;
    SwitchStyle style;
    style.growth = theme_->signScale();
    style.track = between(theme_->off(), theme_->on(), position_);
    style.position = position_;
    style.mirrored = QGuiApplication::layoutDirection() == Qt::RightToLeft;
    paintSwitch(painter, style);
}

void Toggle::mousePressEvent(QMouseEvent* event) {
    // The release is delivered here too, unless the list is dragged first.
    event->accept();
}

void Toggle::mouseReleaseEvent(QMouseEvent* event) {
    if (contains(event->position()))
        ask();
}

void Toggle::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key != Qt::Key_Space && key != Qt::Key_Return && key != Qt::Key_Enter)
        event->ignore();
    else if (!event->isAutoRepeat())
        ask();
}

void Toggle::focusInEvent(QFocusEvent*) {
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(this, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

void Toggle::notifyAccessibility() const {
    if (!QAccessible::isActive())
        return;
    QAccessible::State checked;
    checked.checked = true;
    QAccessibleStateChangeEvent event(const_cast<Toggle*>(this), checked);
    QAccessible::updateAccessibility(&event);
}

} // namespace wardlock::window
