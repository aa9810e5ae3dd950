#pragma once

#include "linux/applist/Application.h"

#include <string>

namespace platform::applist {

/// Returns the file of a .app folder's icon for a square of `pixels`: the smallest that is large enough, else
/// the largest. Never a file outside the folder, whatever names or links lead to; empty when there is none.
std::string bundleIcon(const Application& application, int pixels);

} // namespace platform::applist
