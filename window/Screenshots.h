#pragma once

#include "window/Options.h"

namespace wardlock::window {

/// Writes a picture of every page to the folder of the options: in both appearances, or the one of the
/// options, and at the size of a phone and of a small desktop. Returns the process's exit status; errors are
/// printed on standard error. Needs a QGuiApplication, but no display.
int takeScreenshots(const Options& options);

} // namespace wardlock::window
