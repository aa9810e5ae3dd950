#pragma once

#include "cli/fullscreen/Canvas.h"

#include <string>
#include <vector>

namespace wardlock::cli {

/// A key, and what it does, as the last line of the screen shows them.
struct Hint {
    std::string key;
    std::string action;
    /// Where there is no room for all hints, those of the highest numbers are left out.
    int rank = 0;
};

/// Draws the hints that fit, in their order.
void drawHints(Canvas& canvas, const Area& line, std::vector<Hint> hints);

} // namespace wardlock::cli
