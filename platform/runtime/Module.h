#pragma once

#include "platform/base/Export.h"
#include "platform/runtime/Class.h"

#include <string>

namespace platform {

/// Opens the module in a file of this machine, as dlopen does for a device path. Returns null with one line
/// in `reason` when it cannot be opened.
///
/// A module runs with all the user's rights, so a file that another user could have put there or changed is
/// refused.
WARDLOCK_API void* openModule(const std::string& path, int mode, std::string& reason);

/// Returns why the file at an absolute path must not be used, as code or as a description of code. The reason
/// is a user whom the process does not trust otherwise and who could have put it there or changed it. Empty
/// when there is none.
///
/// The file, its folder and every folder above are checked, also those that symbolic links on the way lead
/// through:
/// - All must belong to the user, to root or to the owner of this library, and no other user may write to
///   them.
/// - A folder above the file's own may be sticky.
/// - Folders above this library are not checked: a user who can change those does not need a module.
std::string reasonToDistrust(const std::string& path);

/// Returns the classes of an open module; none for a handle that is not open.
ClassTable classesOfModule(void* handle);

/// Returns the file of the program or library that contains the address, without links; empty when none does.
std::string moduleContaining(const void* address);

} // namespace platform
