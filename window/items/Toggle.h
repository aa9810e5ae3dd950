#pragma once

#include "window/items/PaintedItem.h"
#include "window/items/Theme.h"

#include <QPoint>
#include <QPointer>
#include <QVariantAnimation>

#include <memory>

namespace wardlock::window {

/// An on/off switch. It shows `on` and requests the other state; it never changes by itself.
class Toggle : public PaintedItem {
    Q_OBJECT
    Q_PROPERTY(bool on READ isOn WRITE setOn NOTIFY changed)
    /// Whether it can be flipped at all; a covered switch looks as usual.
    Q_PROPERTY(bool available READ isAvailable WRITE setAvailable NOTIFY changed)
    Q_PROPERTY(QString label READ label WRITE setLabel NOTIFY changed)
    /// Of its row, for assistive technology: the place, from 1, and the number of rows.
    Q_PROPERTY(QPoint placeInList READ placeInList WRITE setPlaceInList NOTIFY changed)

public:
    explicit Toggle(QQuickItem* parent = nullptr);

    bool isOn() const { return on_; }
    /// Slides to the state when the switch is visible.
    void setOn(bool on);
    /// Shows the state without sliding.
    void showOn(bool on);
    bool isAvailable() const { return available_; }
    void setAvailable(bool available);
    const QString& label() const { return label_; }
    void setLabel(const QString& label);
    QPoint placeInList() const { return placeInList_; }
    void setPlaceInList(QPoint place) { placeInList_ = place; }
    /// Does what a tap does.
    void ask();

    /// From now on its parent, which QML created, paints the switch as a part of itself and is updated in its
    /// stead. That saves one picture for each row. For a switch that is always available.
    void leavePaintingToParent();
    void paint(QPainter& painter) override;

signals:
    void asked(bool on);
    void changed();

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    const Theme* theme();
    void followTheme();
    void repaint();
    void slide();
    void notifyAccessibility() const;

    QPointer<Theme> theme_;
    std::unique_ptr<QVariantAnimation> animation_;
    QString label_;
    QPoint placeInList_;
    /// The knob's position: 0 off, 1 on.
    double position_ = 0;
    bool on_ = false;
    bool available_ = true;
};

} // namespace wardlock::window
