#pragma once

#include "cli/doctor/CheckResult.h"

#include <string>
#include <vector>

namespace wardlock::cli {

/// The checks of CheckResult.h, given the folders of the fonts.
CheckResult emojiIn(const std::vector<std::string>& folders);
CheckResult eastAsianLettersIn(const std::vector<std::string>& folders);

} // namespace wardlock::cli
