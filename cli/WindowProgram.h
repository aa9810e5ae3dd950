#pragma once

namespace wardlock::cli {

/// Becomes the program that shows Settings in a window, where that is installed beside this one and there is
/// a display. Returns otherwise.
void openWindowProgram();

} // namespace wardlock::cli
