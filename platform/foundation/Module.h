#pragma once

#include "platform/foundation/Class.h"

#include <string>

namespace platform {

/// Opens the module in a file of this machine, as dlopen does for a device path; null with a line in `reason`
/// when it cannot be.
///
/// A module runs with all the user's rights, so one that somebody else could have changed is refused: the
/// file and its folder must belong to the user or to root and be writable by nobody else.
void* openModule(const std::string& path, int mode, std::string& reason);

/// The classes of an open module; none for a handle that is not open.
ClassTable classesOfModule(void* handle);

/// The file of the program or library that holds the address, without links; empty when none does.
std::string moduleHolding(const void* address);

} // namespace platform
