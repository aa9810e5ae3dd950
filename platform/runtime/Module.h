#pragma once

#include "platform/runtime/Class.h"

#include <string>

namespace platform {

/// Opens the module in a file of this machine, as dlopen does for a device path; null with a line in `reason`
/// when it cannot be.
///
/// A module runs with all the user's rights, so one that somebody else could have put there or changed is
/// refused.
void* openModule(const std::string& path, int mode, std::string& reason);

/// Why the code in this file, an absolute path, or what is said of it there, is not to be used: somebody whom
/// the process does not trust anyhow could have put it there or changed it. Empty when nobody could.
///
/// The file, its folder and every folder above are judged, also those that symbolic links on the way lead
/// through. All must belong to the user, to root or to the owner of this library, and be writable by nobody
/// else; a folder above the file's own may be sticky, and what lies above this library may be anything: who
/// can change that has no need of a module.
std::string reasonToDistrust(const std::string& path);

/// The classes of an open module; none for a handle that is not open.
ClassTable classesOfModule(void* handle);

/// The file of the program or library that holds the address, without links; empty when none does.
std::string moduleHolding(const void* address);

} // namespace platform
