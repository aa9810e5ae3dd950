#pragma once

namespace wardlock::window {

enum class DrawnOn { Display, Memory };

/// Tells Qt and the web engine how to draw, by environment and attributes: to be called before the
/// QGuiApplication is made. In memory there is neither a display nor a graphics card: pictures and tests.
void chooseGraphics(DrawnOn place);

} // namespace wardlock::window
