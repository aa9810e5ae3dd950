#pragma once

#include "platform/base/Export.h"

#include <string>
#include <string_view>

namespace platform {

inline constexpr int RTLD_Lazy = 1;

/// Opens the module at a device path and registers its classes. Returns a handle, or null when there is no
/// such module or it cannot be loaded (dlerror() tells why). Opening it again counts up. The module stays
/// mapped for the life of the process, so objects released late are safe.
WARDLOCK_API void* dlopen(std::string_view devicePath, int mode);
/// Gives the handle back; the last one withdraws the module's classes. Null is accepted and does nothing.
WARDLOCK_API void dlclose(void* handle);
/// Why dlopen does not even look into the file at a device path: somebody else could have changed it, or a
/// folder on the way to it. Empty when nobody could, and when there is no file.
WARDLOCK_API std::string reasonToDistrustModule(std::string_view devicePath);
/// Why the last dlopen of this thread failed, in one line; empty when it did not.
WARDLOCK_API std::string dlerror();

} // namespace platform
