#pragma once

/// The diagnostics log: a plain UTF-8 file that only grows, each entry preceded by a line feed. Entries may
/// come from any thread; the file is written on the main thread, in the order of the calls. A log that cannot
/// be written loses its entry without a report.

#include "../platform/base/Export.h"
#include "../platform/text/Format.h"

#include <string>
#include <string_view>

namespace wardlock {

/// Queues the appending of a message and returns.
WARDLOCK_API void appendToLog(std::string_view message);

/// Formats at once, so that later changes to the arguments do not matter, and queues the appending.
template <class... Args>
void jLog(std::string_view format, const Args&... arguments) {
    appendToLog(platform::stringWithFormat(format, arguments...));
}

} // namespace wardlock
