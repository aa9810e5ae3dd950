#pragma once

#include <QString>

namespace wardlock::window {

/// Returns the user guide as Markdown for a narrow window: without pictures and links, its tables as lists.
QString userGuideText();

} // namespace wardlock::window
