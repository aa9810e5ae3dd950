#pragma once

#include <QColor>
#include <QPainter>

namespace wardlock::window {

/// What a switch looks like.
struct SwitchStyle {
    /// In points.
    static constexpr QSizeF size{51, 31};

    QColor track;
    /// Around the switch that has the keyboard; transparent for none.
    QColor ring = Qt::transparent;
    /// Where the knob is: 0 at the beginning, 1 at the end.
    double position = 0;
    /// The beginning is on the right.
    bool mirrored = false;

    bool operator==(const SwitchStyle&) const = default;
};

/// Paints it from the painter's origin on. A window full of rows has two or three different faces: those at
/// rest are painted once. Any thread.
void paintSwitch(QPainter& painter, const SwitchStyle& face);

} // namespace wardlock::window
