#pragma once

namespace wardlock::window {

enum class DrawnOn { Display, Memory };

/// Configures by environment and attributes how Qt and the web engine draw. To be called before the
/// QGuiApplication is created. Drawing in memory needs neither a display nor a graphics card: for pictures
/// and tests.
void chooseGraphics(DrawnOn place);

} // namespace wardlock::window
