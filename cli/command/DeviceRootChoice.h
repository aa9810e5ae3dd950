#pragma once

#include <string_view>

namespace wardlock::cli {

/// Makes the folder the device root of this process, of its child processes and of the notifications it
/// sends. Throws CommandError (WrongUsage) when the text is not the name of a folder. Call it before any
/// thread runs.
void useDeviceRoot(std::string_view folder);

/// Returns what has named the device root: "--device-root", or the environment's "WARDLOCK_DEVICE_ROOT".
std::string_view nameOfDeviceRootChoice();

} // namespace wardlock::cli
