#pragma once

#include "platform/base/Export.h"

#include <string>
#include <string_view>

namespace platform {

/// Returns the folder below which every device path is looked up, an absolute path without a trailing slash
/// ("/" itself aside). Read again at each call:
/// - WARDLOCK_DEVICE_ROOT where it is set;
/// - else "/" where /var/mobile exists;
/// - else wardlock/device in the user's XDG data folder.
WARDLOCK_API std::string deviceRoot();

/// Returns whether WARDLOCK_DEVICE_ROOT names the root.
WARDLOCK_API bool deviceRootIsFromEnvironment();

/// Returns whether the root is the machine's own or the user's default one, also where the environment names
/// that same folder.
WARDLOCK_API bool deviceRootIsDefault();

/// Returns the path on this machine for an absolute device path. As on the device itself, ".." does not lead
/// above the root.
WARDLOCK_API std::string pathOnDevice(std::string_view devicePath);

} // namespace platform
