#pragma once

#include "platform/base/Export.h"

#include <string>
#include <vector>

namespace platform {

/// Prepares the process; a program calls it before all else.
/// - A write to a pipe whose reader is gone, or beyond the limit on the size of files, fails with a reason.
///   It does not end the process in the middle of a change.
/// - Standard descriptors that the caller closed are taken, so that no file or bus gets their numbers. A
///   write to a closed standard output still fails.
/// - A process with the rights of another user than the one who started it (set-user-id, set-group-id) ends
///   here, with exit code 1.
/// - The system keeps no core dump of the process: it would contain the passcode, and may leave the machine
///   with a report of the crash. The limit is the soft one, and child processes inherit it.
WARDLOCK_API void prepareProcess();

/// Returns whether this process has the superuser's rights, with which some engines refuse to be sandboxed.
WARDLOCK_API bool isSuperuser();

/// Replaces this process by the program `name` in this program's folder; returns only when that fails.
WARDLOCK_API void becomeProgramBeside(const std::string& name, const std::vector<std::string>& arguments);

} // namespace platform
