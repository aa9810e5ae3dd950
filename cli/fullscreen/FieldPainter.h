#pragma once

#include "cli/fullscreen/Canvas.h"
#include "cli/fullscreen/TextEditor.h"

#include <string>

namespace wardlock::cli {

/// Draws a text of one line that is being typed, with the caret, in a field of that width; the part around
/// the caret where it is longer. With `hidden`, each character is a dot.
void drawField(Canvas& canvas, Point point, std::size_t columns, const TextEditor& editor, bool hidden);

} // namespace wardlock::cli
