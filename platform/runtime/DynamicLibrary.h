#pragma once

#include "platform/base/Export.h"

#include <string>
#include <string_view>

namespace platform {

inline constexpr int RTLD_Lazy = 1;

/// Opens the module at a device path and registers its classes. Returns a handle, or null when the module is
/// missing or cannot be loaded (dlerror() returns the reason). Each open needs its own dlclose(). The module
/// stays mapped for the life of the process, so objects released late are safe.
WARDLOCK_API void* dlopen(std::string_view devicePath, int mode);
/// Releases the handle; the last release withdraws the module's classes. Null has no effect.
WARDLOCK_API void dlclose(void* handle);
/// Returns why dlopen refuses the file at a device path without reading it: another user could have changed
/// the file or a folder on the way to it. Empty when no other user could, and when there is no file.
WARDLOCK_API std::string reasonToDistrustModule(std::string_view devicePath);
/// Returns why the last dlopen of this thread failed, in one line; empty when it succeeded.
WARDLOCK_API std::string dlerror();

} // namespace platform
