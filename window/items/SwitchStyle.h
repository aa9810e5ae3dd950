#pragma once

#include <QColor>
#include <QPainter>

namespace wardlock::window {

/// How a switch is painted.
struct SwitchStyle {
    /// In points.
    static constexpr QSizeF size{51, 31};

    QColor track;
    /// The knob's position: 0 at the beginning, 1 at the end.
    double position = 0;
    /// The beginning is on the right.
    bool mirrored = false;

    bool operator==(const SwitchStyle&) const = default;
};

/// Paints the switch from the painter's origin on. A window full of rows has two or three different styles:
/// each is painted once while no knob moves. Any thread.
void paintSwitch(QPainter& painter, const SwitchStyle& style);

} // namespace wardlock::window
