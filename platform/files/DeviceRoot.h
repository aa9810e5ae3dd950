#pragma once

#include "platform/base/Export.h"

#include <string>
#include <string_view>

namespace platform {

/// The folder below which every device path is looked up: WARDLOCK_DEVICE_ROOT; else "/" where /var/mobile
/// exists; else wardlock/device in the user's XDG data folder. Read anew at each call. Absolute; no trailing
/// slash, except "/" itself.
WARDLOCK_API std::string deviceRoot();

/// Whether WARDLOCK_DEVICE_ROOT names the root.
WARDLOCK_API bool deviceRootIsNamed();

/// Whether the root is the machine's own or the user's default one. It is also where the environment names
/// that same folder.
WARDLOCK_API bool deviceRootIsOwn();

/// The path of this machine for an absolute device path. As on the device itself, ".." does not lead above
/// the root.
WARDLOCK_API std::string pathOnDevice(std::string_view devicePath);

} // namespace platform
