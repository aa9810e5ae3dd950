#pragma once

#include <QColor>
#include <QPainter>

namespace wardlock::window {

/// How a switch is painted.
struct SwitchStyle {
    /// In points, before it grows.
    static constexpr QSizeF usualSize{51, 31};

    /// The factor by which it is larger than usual.
    double growth = 1;
    QColor track;
    /// The knob's position: 0 at the beginning, 1 at the end.
    double position = 0;
    /// The beginning is on the right.
    bool mirrored = false;

    /// Returns the size in whole points, so that the parts of a row stay on whole pixels.
    static QSizeF sizeAt(double growth) { return (usualSize * growth).toSize(); }
    QSizeF size() const { return sizeAt(growth); }

    bool operator==(const SwitchStyle&) const = default;
};

/// Paints the switch from the painter's origin on. A window full of rows has two or three different styles:
/// each is painted once while no knob moves. Any thread.
void paintSwitch(QPainter& painter, const SwitchStyle& style);

} // namespace wardlock::window
