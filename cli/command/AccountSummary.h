#pragma once

#include "platform/values/Value.h"

#include <string>
#include <vector>

namespace wardlock::cli {

/// Returns the keys of the restrictions that are on, in the order of the record. A restriction is a switch
/// of the default account, its own one aside.
std::vector<std::string> activeRestrictions(const platform::Dictionary& record);

/// Returns the identifiers of the restricted applications, in their stored order.
std::vector<std::string> restrictedApps(const platform::Dictionary& record);

/// Returns "7 restrictions", "1 app".
std::string counted(std::size_t count, std::string_view what);

/// Returns "Siri, Camera": the restrictions by their labels, or "none".
std::string restrictionsInWords(const std::vector<std::string>& keys);

/// Returns "9 apps (FaceTime, Phone, Messages, ...)", or "none". `names` maps identifiers to display names;
/// an application without one is shown by its identifier.
std::string appsInWords(const std::vector<std::string>& identifiers, const platform::Dictionary& names);

} // namespace wardlock::cli
