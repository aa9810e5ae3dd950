#pragma once

#include <QString>

namespace wardlock::window {

/// Returns the user guide as Markdown for a narrow window: without pictures and links, its tables as lists
/// and its code in italics.
QString userGuideText();

} // namespace wardlock::window
