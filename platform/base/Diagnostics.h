#pragma once

#include "platform/base/Export.h"

#include <string>
#include <string_view>

namespace platform {

/// Reports to the log what the platform refused or left out for safety and reports nowhere else. Any thread.
///
/// Each text is reported once per process, and at most a hundred texts are: what is refused again and again
/// must not fill the log.
WARDLOCK_API void diagnose(const std::string& text);

/// Sets the function that receives each text, on the thread that reports it. Null, the state at the start,
/// receives nothing. A text that came without a handler is reported when it comes again.
using DiagnosticsHandler = void (*)(std::string_view text);
WARDLOCK_API void setDiagnosticsHandler(DiagnosticsHandler handler);

} // namespace platform
