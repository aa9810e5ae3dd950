#pragma once

#include <QIcon>

namespace wardlock::window {

enum class DrawnOn { Display, Memory };

/// Configures by environment and attributes how Qt and the web engine draw. To be called before the
/// QGuiApplication is created. Drawing in memory needs neither a display nor a graphics card: for pictures
/// and tests.
void chooseGraphics(DrawnOn place);

/// Returns the program's icon, which some desktops take from the window.
QIcon programIcon();

} // namespace wardlock::window
