#pragma once

#include "platform/base/Export.h"
#include "settings/history/Difference.h"

#include <string>
#include <vector>

namespace wardlock {

/// Describes a change: "Tom: Siri on", "Ann deleted", "passcode changed". The digits of a passcode are never
/// in the text. Names are as they are stored; who prints them has to keep them on one line.
WARDLOCK_API std::string changeText(const Change& change);
WARDLOCK_API std::vector<std::string> changeTexts(const std::vector<Change>& changes);

} // namespace wardlock
