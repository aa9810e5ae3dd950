#pragma once

#include "platform/base/Export.h"

#include <string>
#include <vector>

namespace platform {

/// What a program does before all else, so that it can answer for what happens to it: a write to a pipe that
/// nobody reads any more, or beyond the limit on the size of files, fails with a reason instead of ending the
/// process in the middle of a change; and standard descriptors that the caller closed are taken, so that no
/// file or bus gets their numbers. A write to a closed standard output still fails.
///
/// A process with the rights of another user than the one who started it (set-user-id, set-group-id) ends
/// here, with exit code 1. Of all others the system keeps no core dump, whatever ends them: it would hold the
/// passcode, and may leave the machine with a report of the crash. The limit is the soft one, and programs
/// started from here on inherit it.
WARDLOCK_API void prepareProcess();

/// Becomes the program of that name that stands beside this one; returns where it cannot.
WARDLOCK_API void becomeProgramBeside(const std::string& name, const std::vector<std::string>& arguments);

} // namespace platform
