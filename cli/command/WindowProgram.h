#pragma once

#include <string>

namespace wardlock::cli {

/// The program that shows Settings in a window, where it is installed beside this one; else empty.
std::string windowProgramPath();

/// Whether the environment names a display.
bool hasDisplay();

/// Becomes that program, where it is installed and there is a display; where the display does not answer, it
/// goes on with `wardlock settings --terminal`. Returns otherwise.
void openWindowProgram();

} // namespace wardlock::cli
