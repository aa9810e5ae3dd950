#pragma once

#include "window/Options.h"

namespace wardlock::window {

/// Writes a picture of every page, in both appearances (or the one asked for) and at the size of a phone and
/// of a small desktop, to the folder of the options. Answers the process's exit status; what goes wrong is
/// told on standard error. A QGuiApplication that needs no display is there.
int takeScreenshots(const Options& options);

} // namespace wardlock::window
