#pragma once

#include "platform/base/Export.h"

#include <string>
#include <string_view>

namespace platform {

/// What the platform refused or left out for its own safety and nobody is told otherwise: a word to whoever
/// keeps a log. From any thread.
///
/// The same text is told once a process, and no more than a hundred texts: what is refused again and again
/// must not fill the log.
WARDLOCK_API void diagnose(const std::string& text);

/// Who is told, on the thread of the call; null for nobody, as at the start. What was told to nobody is told
/// when it comes up again.
using DiagnosticsKeeper = void (*)(std::string_view text);
WARDLOCK_API void setDiagnosticsKeeper(DiagnosticsKeeper keeper);

} // namespace platform
