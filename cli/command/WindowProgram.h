#pragma once

#include <string>

namespace wardlock::cli {

/// Returns the path of the program that shows Settings in a window; empty when it is not installed beside
/// this one.
std::string windowProgramPath();

/// Returns whether the environment names a display.
bool hasDisplay();

/// Replaces this process by that program where it is installed and there is a display; returns otherwise. If
/// the display cannot be opened, the program continues with `wardlock settings --terminal`.
void openWindowProgram();

} // namespace wardlock::cli
